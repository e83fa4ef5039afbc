#pragma once

#include "HBLCore/HBLArena.h"
#include "HBLCore/MRLExport.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The one interface of every value that travels in a request or a reply.
///
/// A type is a number: the CRC-32 of its schema name, taken as a signed 32-bit integer. A child is
/// reached by its schema name. An object owns none of its children: what a setter stores must be
/// owned by a registry (MRLObjectRegistryI) or by the caller, and outlive the object.
/// One thread at a time.
class MRL_EXPORT MRLSchemaTypeI : public HBLArenaPiece {
public:
    enum ObjectType : std::int32_t {
        e_Unknown = 0,
        eString = 1,
        eInt = 2,
        eInteger = 3,
        eDecimal = 4,
        eTime = 5,
        eDateTime = 6,
        eBoolean = 7,
        eBase64Binary = 8,
        eFloat = 9,
        eQName = 10,
        eAnyType = 11,
        eMRLUndocumentedFaultDetail = 12,
        eMRLUndocumentedFaultDetailArray = 13,
        eMRLSOAPFault = 14,
        eMRLZOR_Unsupported = 15,
#include "Toolkit/MRLObjectType_gen_.inc"
        /// A value handed over as `const char*` that may be a MRL_CharStreamable.
        eCharStreamable = 0x116E90CF
    };

    MRLSchemaTypeI(const MRLSchemaTypeI&) = delete;
    MRLSchemaTypeI& operator=(const MRLSchemaTypeI&) = delete;
    virtual ~MRLSchemaTypeI();

    /// The type of the most derived class.
    virtual ObjectType getObjectType() const = 0;

    /// The name of the class itself, "MRLNameValue"; not the schema name.
    virtual const std::string& getGeneratedObjectName() const = 0;

    /// A child by its schema name, typed by getChildType(); null when there is none and for a name
    /// that the class does not know.
    /// @param create not 0: a nullable value counts as set from now on, and its address is returned
    ///        so that a reader can store through it. Objects and text are never created here.
    /// @throws HBLAssertError for a null name.
    virtual void* getChildObject(const char* name, int create) = 0;

    /// The declared type of a child, whatever it holds; e_Unknown for a name not known.
    /// @throws HBLAssertError for a null name.
    virtual ObjectType getChildType(const char* name) const = 0;

    /// Stores `obj`, a value of type `type`, as the child `name`. Nothing is copied; text comes as
    /// MRL_String, or as it is with eCharStreamable. A name not known is dropped without a word.
    /// @param index for arrays only: null appends, else the 1-based place to replace.
    /// @return 0; for arrays the 1-based position of the element.
    /// @throws MRLException when the type does not fit; HBLAssertError for null and for array members.
    virtual std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                                       std::size_t* index) = 0;

    /// Appends the names of the children, inherited ones first, each level in the order of the
    /// schema. The texts live as long as the process.
    /// @param reserve makes room for all of them first.
    virtual void getChildObjectNames(std::vector<const char*>& names, bool reserve) const = 0;

    /// 1 when the object is of `type` or of a type derived from it, else 0.
    virtual int isa(ObjectType type) const = 0;

protected:
    MRLSchemaTypeI() = default;

private:
    virtual std::size_t getChildObjectCount() const = 0;
};

/// `a == b` between schema objects goes to the comparison of a's own class, in that direction: an
/// object equals one of a derived class when all of its own data match, and not the other way round.
template <std::derived_from<MRLSchemaTypeI> A, std::derived_from<MRLSchemaTypeI> B>
requires requires(const A& a, const MRLSchemaTypeI& b) {
    a.operator==(b);
}
int operator==(const A& a, const B& b) {
    return a.operator==(static_cast<const MRLSchemaTypeI&>(b));
}

/// The inverse of the comparison above.
template <std::derived_from<MRLSchemaTypeI> A, std::derived_from<MRLSchemaTypeI> B>
requires requires(const A& a, const MRLSchemaTypeI& b) {
    a.operator!=(b);
}
int operator!=(const A& a, const B& b) {
    return a.operator!=(static_cast<const MRLSchemaTypeI&>(b));
}
