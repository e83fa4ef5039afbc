#include "serialization/MRL_AttachmentHandler.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_AttachmentContainerI.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_Streamable.h"
#include "Toolkit/MRL_String.h"
#include "serialization/DefaultAttachmentContainer.h"
#include "serialization/detail/Adopt.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQGZIPInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

using mrl::detail::adopted;

namespace {

/// The attachment that is open; given back on every way out.
class OpenAttachment {
public:
    explicit OpenAttachment(TavelTKMessageReader& reader)
        : m_reader(reader)
        , m_attachment(&reader.openNextAttachment()) {}
    ~OpenAttachment() {
        try {
            close();
        } catch (...) { // the failure that led here is the one to report
        }
    }
    OpenAttachment(const OpenAttachment&) = delete;
    OpenAttachment& operator=(const OpenAttachment&) = delete;

    TavelTKAttachmentReader* operator->() const { return m_attachment; }

    void close() {
        if (TavelTKAttachmentReader* const attachment = std::exchange(m_attachment, nullptr)) {
            m_reader.closeAttachment(*attachment);
        }
    }

private:
    TavelTKMessageReader& m_reader;
    TavelTKAttachmentReader* m_attachment;
};

/// Without the angle brackets that frame an id in MIME.
std::string unframed(const char* contentId) {
    std::string_view id = contentId == nullptr ? "" : contentId;
    if (id.starts_with('<')) {
        id.remove_prefix(1);
    }
    if (id.ends_with('>')) {
        id.remove_suffix(1);
    }
    return std::string(id);
}

void readInto(MRL_AttachmentContainerI& container, PLQInputStream& input) {
    std::array<char, 2048> piece;
    for (;;) {
        const std::size_t n = input.read(piece.data(), piece.size());
        if (PLQInputStream::isEnd(n)) {
            return;
        }
        container.write(piece.data(), n);
    }
}

void copyText(const char* text, MRL_Streamable* streamable, MRL_String& copy) {
    if (text != nullptr) {
        copy.append(text);
        return;
    }
    PLQMemoryOutputStream bytes(2048, 0);
    *streamable >> bytes;
    copy.appendChars(bytes.bytes(), bytes.length());
}

} // namespace

MRL_AttachmentHandler::MRL_AttachmentHandler() = default;
MRL_AttachmentHandler::~MRL_AttachmentHandler() = default;

const char16_t* MRL_AttachmentHandler::getCid(const char16_t* value) {
    constexpr std::u16string_view scheme = u"cid:";
    const std::u16string_view text = value == nullptr ? std::u16string_view() : std::u16string_view(value);
    return text.starts_with(scheme) && text.size() > scheme.size() ? value + scheme.size() : nullptr;
}

void MRL_AttachmentHandler::registerHref(const char* contentId, MRLSchemaTypeI* object, const char* name,
                                         const MRLSchemaTypeI::ObjectType& type, std::size_t index) {
    m_references.emplace_back(hblNew<MRL_HrefReference>(HBL_HERE, contentId, object, name, type, index));
}

int MRL_AttachmentHandler::resolveReferences(TavelTKMessageReader& reader, MRLObjectRegistryI& registry,
                                             ContainerFactory containerFactory) {
    const auto readAll = [&] {
        while (reader.hasMoreAttachments() != 0) {
            MRL_AttachmentContainerI* const container =
                adopted(registry, containerFactory != nullptr ? containerFactory()
                                                              : hblNew<DefaultAttachmentContainer>(HBL_HERE));
            OpenAttachment attachment(reader);
            const std::string contentId = unframed(attachment->getContentID());
            PLQInputStream* input = &attachment->getInputStream();
            std::optional<PLQGZIPInputStream> unpacked;
            if (attachment->isGzipped() != 0) {
                input = &unpacked.emplace(*input);
            }
            readInto(*container, *input);
            resolveAttachment(contentId.c_str(), *container, registry);
            attachment.close();
        }
    };
    if (reader.canHaveAttachments() != 0) {
        hblRethrowing("MRL_AttachmentHandler::resolveReferences", readAll);
    }
    return m_references.empty() ? 1 : 0;
}

void MRL_AttachmentHandler::resolveAttachment(const char* contentId, MRL_AttachmentContainerI& container,
                                              MRLObjectRegistryI& registry) {
    for (auto place = m_references.begin(); place != m_references.end();) {
        if ((*place)->getContentId() == contentId) {
            serve(**place, container, registry);
            place = m_references.erase(place);
        } else {
            ++place;
        }
    }
}

/// Puts the attachment where the empty value stood.
void MRL_AttachmentHandler::serve(const MRL_HrefReference& reference, MRL_AttachmentContainerI& container,
                                  MRLObjectRegistryI& registry) {
    const char* const text = container.c_str();
    MRL_Streamable* const pStreamable = text == nullptr ? container.getStreamable() : nullptr;
    if (text == nullptr) {
        HBL_ASSERT(pStreamable);
    }
    std::size_t index = reference.getIndex();
    std::size_t* const place = index != 0 ? &index : nullptr; // 0 is no place in an array
    const char* const name = reference.getName().c_str();
    MRLSchemaTypeI& object = reference.getObject();
    if (MRLSchemaTypesFactory::isString(reference.getType()) != 0) {
        if (MRLSchemaTypesFactory::getInstance().isArrayType(object.getObjectType()) != 0) {
            // An array of texts takes them one by one as buffers, never as a stream.
            auto* const copy = adopted(registry, hblNew<MRL_String>(HBL_HERE));
            copyText(text, pStreamable, *copy);
            object.setChildObject(name, copy, MRLSchemaTypeI::eString, place);
            return;
        }
        const char* value = text;
        if (text == nullptr) {
            auto* const streamable = adopted(registry, hblNew<MRL_CharStreamable>(HBL_HERE));
            streamable->initialize(*pStreamable, 0);
            value = streamable->asCharStar();
        }
        object.setChildObject(name, const_cast<char*>(value), MRLSchemaTypeI::eCharStreamable, place);
        return;
    }
    auto* const value = adopted(registry, hblNew<MRLBase64Binary>(HBL_HERE));
    if (text != nullptr) {
        value->reference(text, 0);
    } else {
        value->reference(*pStreamable);
    }
    object.setChildObject(name, value, reference.getType(), place);
}
