// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLThing.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLBase64Binary;
class MRLIntArray;
class MRLPart;
class MRLPartArray;
class MRLShapeEnum;
class MRLStringArray;
class MRLGadget_PrivateData;

/// A thing with a member of every kind.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLGadget : public MRLThing {
public:
    static constexpr ObjectType s_objectType = eMRLGadget;
    static constexpr const char* s_className = "MRLGadget";

    MRLGadget();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLGadget(const MRLGadget& other, MRLObjectRegistryI& registry);
    MRLGadget(const MRLGadget&) = delete;
    MRLGadget& operator=(const MRLGadget&) = delete;
    ~MRLGadget() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;
    int operator==(const MRLSchemaTypeI& other) const override;
    int operator!=(const MRLSchemaTypeI& other) const override;

    /// active: A number that is 0 or 1.
    int* getActive() const;
    void setActive(int value);
    void resetActive();

    /// count: A number.
    int* getCount() const;
    void setCount(int value);
    void resetCount();

    /// data: Bytes.
    MRLBase64Binary* getData() const;
    MRLBase64Binary* getData(MRLObjectRegistryI* registry);
    void setData(MRLBase64Binary* value);

    /// for: A text whose name is a word of the language.
    const char* getFor() const;
    void setFor(const char* value);

    /// keeper: An object of an abstract type.
    MRLThing* getKeeper() const;
    MRLThing* getKeeper(MRLObjectRegistryI* registry);
    void setKeeper(MRLThing* value);

    /// part: An object.
    MRLPart* getPart() const;
    MRLPart* getPart(MRLObjectRegistryI* registry);
    void setPart(MRLPart* value);

    /// parts: An array of objects.
    MRLPartArray& getParts() const;

    /// ratio: A number with a fraction.
    float* getRatio() const;
    void setRatio(float value);
    void resetRatio();

    /// shape: An enumeration.
    MRLShapeEnum* getShape() const;
    MRLShapeEnum* getShape(MRLObjectRegistryI* registry);
    void setShape(MRLShapeEnum* value);

    /// sizes: An array of numbers.
    MRLIntArray& getSizes() const;

    /// tags: An array of texts.
    MRLStringArray& getTags() const;

    /// total: A number that is no int on the wire.
    int* getTotal() const;
    void setTotal(int value);
    void resetTotal();

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLGadget_PrivateData* m_data; // owned
};
