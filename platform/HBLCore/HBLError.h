#pragma once

#include "HBLCore/HBLBoundary.h"
#include "HBLCore/HBLThrowable.h"

#include <memory>
#include <string>

/// A throwable with one fixed text in no particular language: base of the fixed error classes.
class MRL_EXPORT HBLError : public HBLThrowable {
public:
    using HBLThrowable::getMessage;
    const char* getMessage(const char* language, std::string& text) const override;

    /// The text as given.
    const char* getText() const noexcept;

protected:
    /// A null `text` is `fallback`, which is borrowed and must be a literal.
    HBLError(int errorCode, const char* text, const char* fallback);

private:
    std::shared_ptr<const std::string> m_ownText; // shared, so that copying while throwing needs no memory
    const char* m_fallback;
};

/// The members every fixed error class has: its name, its copy, its throw.
template <class Derived>
class MRL_EXPORT HBLErrorOf : public HBLError {
public:
    HBLError* clone() const override { return hblNew<Derived>(HBL_HERE, static_cast<const Derived&>(*this)); }
    [[noreturn]] void hurl(const HBLFileLocation& where, const char* function, const char* macro) override {
        addBackTrace(where, function, macro);
        hblThrowCopy(static_cast<const Derived&>(*this), where, function);
    }
    const char* getThrowableName() const override { return Derived::s_name; }

protected:
    using HBLError::HBLError;
};
