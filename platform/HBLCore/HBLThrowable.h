#pragma once

#include "HBLCore/HBLFileLocation.h"
#include "HBLCore/HBLSeverity.h"
#include "HBLCore/MRLExport.h"

#include <string>
#include <vector>

/// The shape of the text that HBLThrowable::toString(format, ...) makes.
enum HBLTextFormat : int {
    eHBLTextPlain = 0, ///< lines for people and logs
    eHBLTextXml = 1,   ///< one escaped <Exception> element
};

/// Base of everything that the toolkit throws. Holds an error code and a back trace: one text for
/// each place where it was thrown or passed. Not a std::exception. One thread at a time.
class MRL_EXPORT HBLThrowable {
public:
    virtual ~HBLThrowable();

    /// A copy on the heap, owned by the caller.
    /// @throws HBLOutOfMemoryError
    virtual HBLThrowable* clone() const = 0;

    /// Adds a back trace entry to this object and throws a copy of it by value.
    [[noreturn]] virtual void hurl(const HBLFileLocation& where, const char* function, const char* macro) = 0;

    /// Sets `text` to the message in `language` ("en", "de-at"; null is the default language).
    /// @return the characters of `text`.
    virtual const char* getMessage(const char* language, std::string& text) const = 0;

    /// The name of the class.
    virtual const char* getThrowableName() const = 0;

    /// Name, code, message and back trace as text. Valid until the next call or the object's end.
    virtual const char* toString();

    /// The message in the default language, never null. Valid until the next call or the object's end.
    virtual const char* getMessage() const;

    /// Sets `text` to the whole failure in `format` and `language`, with the back trace if
    /// `withBackTrace` is not 0.
    /// @return the characters of `text`.
    virtual const char* toString(HBLTextFormat format, const char* language, std::string& text,
                                 int withBackTrace) const;

    /// How grave it is; eHBLSeverityError unless a class knows better.
    virtual HBLSeverity getSeverity() const;

    int getErrorCode() const noexcept { return m_errorCode; }

    /// The code as people quote it: component prefix, dash, at least four digits ("HBL-BIT-0006").
    std::string getErrorCodeString() const;

    /// "fatal", "error", "warning", "information"; "unknown" for anything else.
    static const char* getSeverityName(HBLSeverity severity) noexcept;

    /// Appends "file:line: function [macro]". A null `function` is left out. An entry for which there
    /// is no memory is dropped: the failure on its way matters more.
    void addBackTrace(const HBLFileLocation& where, const char* function, const char* macro) noexcept;

    /// The entries, oldest first.
    const std::vector<std::string>& getBackTrace() const noexcept { return m_backTrace; }

    /// Appends the entries of `other` behind those of this object.
    void transferBackTrace(const HBLThrowable& other) noexcept;

protected:
    explicit HBLThrowable(int errorCode) noexcept
        : m_errorCode(errorCode) {}
    HBLThrowable(const HBLThrowable& other) noexcept;
    HBLThrowable& operator=(const HBLThrowable& other) noexcept;

    /// The component in getErrorCodeString(), without the dash behind it ("HBL-BIT").
    virtual const char* getErrorCodePrefix() const;

private:
    int m_errorCode;
    std::vector<std::string> m_backTrace;
    mutable std::string m_text; // what toString() and getMessage() hand out
    mutable std::string m_message;
};
