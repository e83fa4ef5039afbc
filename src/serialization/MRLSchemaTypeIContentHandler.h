#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "Toolkit/MRL_String.h"
#include "serialization/MRLContentHandler.h"
#include "serialization/MRLPrefixMapping.h"
#include "serialization/MRLReaderLimits.h"
#include "serialization/detail/ElementStack.h"
#include "serialization/detail/TextMap.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class MRL_AttachmentHandler;

/// Builds the value of one parameter, or the header, from the events inside its element. The
/// element's own start is the constructor, its end is getObject(). The registry owns every value from
/// the moment it exists, so that a parse that fails leaves nothing behind. One thread, one element.
///
/// Every type check of the reader is here. An element without a type takes the declared type of its
/// place, and elements that the parent's class does not know are skipped with all their content, so
/// that newer services can be read.
class MRLSchemaTypeIContentHandler : public MRLContentHandler {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// @param expectedType the declared type; e_Unknown when only the element itself can tell. Without
    ///        any type the element is skipped.
    /// @param objectRegistry takes the values; borrowed.
    /// @throws MRLException when the element's type is malformed or does not fit.
    MRLSchemaTypeIContentHandler(const XMLCh* localname, const xercesc::Attributes& attributes,
                                 const MRLPrefixMappings& inScopeMappings, ObjectType expectedType,
                                 MRLObjectRegistryI* objectRegistry, const I18NConverter* converter);
    ~MRLSchemaTypeIContentHandler() override;

    void startDocument() override;
    void endDocument() override;
    void startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) override;
    void characters(const XMLCh* chars, XMLSize_t length) override;
    void startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) override;
    void endPrefixMapping(const XMLCh* prefix) override;

    /// The type of the innermost open element; e_Unknown while an element is skipped.
    ObjectType getObjectType() const;

    /// Finishes the innermost open element and gives its value, null for a nil element.
    /// @throws HBLAssertError when the whole element was skipped; MRLException for a text that is no
    ///         value of the type.
    void* getObject();

    /// Takes the references to attachments; borrowed, null for none.
    void setAttachmentHandler(MRL_AttachmentHandler* handler) { m_attachmentHandler = handler; }

    /// The source of the events keeps each name of an element and of a namespace in one place for as long as
    /// the document lasts, as the parser does, so that names once compared are known by their place.
    void setKeepsNames() { m_keepsNames = true; }

    /// The items that one array may have: MRLReaderLimits::arrayItems.
    void setArrayItems(std::uint32_t most) { m_arrayItems = most; }

private:
    using ElementEntry = mrl::detail::ElementEntry;
    using ElementName = mrl::detail::ElementName;

    using Types = mrl::detail::TextMap<ObjectType, 64>;

    /// The name of an element as the objects know it.
    struct Name {
        std::string text;
        std::uint32_t key = 0;                  // HBLUtCrc32
        std::uint64_t prefixesThen = 0;         // m_prefixes when the last such element told its type,
        const Types::Entry* lastType = nullptr; // which stands in m_types since then
    };

    struct KnownName {
        const XMLCh* place = nullptr;
        Name* name = nullptr;
    };

    /// What the reader asks of a type whenever it makes a value.
    struct KnownType {
        ObjectType type = MRLSchemaTypeI::e_Unknown;
        bool isArray = false;
        const mrl::detail::ClassPlan* plan = nullptr;
    };

    /// The attributes of an element that mean something here; null for those that it has not.
    struct WireAttributes {
        const XMLCh* type = nullptr;
        const XMLCh* arrayType = nullptr;
        const XMLCh* contentId = nullptr; // behind "cid:"
        bool isNil = false;
    };

    /// What a prefix stands for, as far as the reader cares.
    enum class Space : std::uint8_t { unknown, encoding, bus, xmlSchema };
    struct Mapping {
        std::uint32_t prefixKey;
        Space space;
    };

    // Types (MRLSchemaTypeIContentHandlerTypes.cpp)
    bool isSpace(const XMLCh* uri, const std::u16string& space, const XMLCh*& known) const;
    WireAttributes readAttributes(const xercesc::Attributes& attributes);
    ObjectType getObjectType(Name& name, const WireAttributes& attributes);
    ObjectType resolveType(const char* localname, std::u16string_view type, const XMLCh* arrayType);
    ObjectType getArrayType(const char* localname, std::u16string_view type, const XMLCh* arrayType);
    std::u16string getBusXsiType(std::u16string_view arrayType, const char* localname) const;
    ObjectType getNamedType(std::u16string_view type, std::string_view prefix, const char* localname);
    Space getURIForPrefix(std::u16string_view prefix) const;
    static std::uint32_t prefixKey(std::u16string_view prefix);
    static Space spaceOf(const XMLCh* uri);
    static void checkType(const char* name, const void* object, ObjectType type, ObjectType expected);
    static void checkItem(const void* item, ObjectType type, ObjectType declared);

    // Elements
    void refuseInEmptyElement();
    Name* nameOf(const XMLCh* localname, Name& spare);
    void startMember(ElementEntry& parent, const ElementName& name, std::size_t member, ObjectType declared,
                     ObjectType xsiType);
    bool isRepeated(ElementEntry& parent, const char* name, std::size_t member);
    void startItem(ElementEntry& parent, const ElementName& name, ObjectType xsiType);
    void startUndocumentedDetail(ElementEntry& array);
    ElementEntry& replaceByOldCredentialForm(ElementEntry& block);
    ElementEntry& pushNew(const ElementName& name, ObjectType type);
    const KnownType& known(ObjectType type);
    void freshText();

    // Values (MRLSchemaTypeIContentHandlerValues.cpp)
    void* newValue(ObjectType type);
    void setCurrentCharacterData(ElementEntry& entry);
    MRL_String* takeText();
    void setOwnText(ElementEntry& entry);
    void setInParent(const ElementEntry& entry, MRLSchemaTypeI& parent);

    std::vector<Mapping> m_inScopePrefixesToNamespaceMappings;
    mrl::detail::ElementStack m_objStack;
    MRLObjectRegistryI* m_objectRegistry; // borrowed
    std::optional<std::string> m_nilElementName;
    std::optional<std::string> m_contentId;
    MRL_String m_currentText; // of the innermost element
    bool m_hasText = false;   // and it still gathers
    char16_t m_halfPair = 0;  // a leading unit whose other half comes with the next characters
    MRL_AttachmentHandler* m_attachmentHandler = nullptr; // borrowed
    bool m_credentialSeen = false;
    MRLSchemaTypeI* m_credential = nullptr; // borrowed from the registry
    std::uint32_t m_skipDepth = 0;
    std::uint32_t m_arrayItems = MRLReaderLimits().arrayItems;
    std::string m_typeName; // kept for its room
    Name m_spareName;       // of an element whose name m_names has no room for
    mrl::detail::TextMap<Name> m_names;
    std::array<KnownName, 64> m_knownNames; // where the source keeps names: by their place
    std::array<KnownType, 32> m_knownTypes; // by their number
    Types m_types;                          // as they are written, while the prefixes stand
    std::uint64_t m_prefixes = 1;           // changes with the prefixes in scope
    bool m_keepsNames = false;
    const XMLCh* m_instanceUri = nullptr; // where the source keeps the names of these two
    const XMLCh* m_encodingUri = nullptr;
};
