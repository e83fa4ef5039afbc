#include "serialization/MRL_AttachmentHandler.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_AttachmentContainerI.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_Streamable.h"
#include "Toolkit/MRL_String.h"
#include "serialization/DefaultAttachmentContainer.h"
#include "serialization/MRLReaderLimits.h"
#include "serialization/detail/Adopt.h"
#include "serialization/detail/Boolean.h"
#include "serialization/detail/GuardedInput.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQGZIPInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <array>
#include <string_view>
#include <utility>

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
    TavelTKAttachmentReader& operator*() const { return *m_attachment; }

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

/// Counts what passes.
class CountedInput : public PLQFilterInputStream {
public:
    CountedInput(PLQInputStream& in, std::uint64_t& count)
        : PLQFilterInputStream(in)
        , m_count(count) {}
    using PLQFilterInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override {
        const std::size_t n = PLQFilterInputStream::read(buffer, count);
        m_count += isEnd(n) ? 0 : n;
        return n;
    }

private:
    std::uint64_t& m_count;
};

/// Moves attachments into their containers, and watches what the packed ones of one reply unpack to.
class Unpacking {
public:
    void readInto(MRL_AttachmentContainerI& container, TavelTKAttachmentReader& attachment) {
        PLQInputStream& input = attachment.getInputStream();
        if (attachment.isGzipped() == 0) {
            copy(container, input, [](std::size_t) {});
            return;
        }
        CountedInput packed(input, m_packed);
        PLQGZIPInputStream unpacked(packed);
        copy(container, unpacked, [this](std::size_t n) { count(n); });
    }

private:
    template <class Each>
    static void copy(MRL_AttachmentContainerI& container, PLQInputStream& input, const Each& each) {
        std::array<char, 2048> piece;
        for (;;) {
            const std::size_t n = input.read(piece.data(), piece.size());
            if (PLQInputStream::isEnd(n)) {
                return;
            }
            each(n);
            container.write(piece.data(), n);
        }
    }

    void count(std::size_t n) {
        m_unpacked += n;
        if (m_unpacked > m_limits.unpackedBytes && m_unpacked / m_limits.unpackedRatio > m_packed) {
            mrl::detail::limitExceeded("bytes unpacked from attachments for each byte received",
                                       "unpackedRatio", m_limits.unpackedRatio);
        }
    }

    MRLReaderLimits m_limits = MRLReaderLimits::getDefaults();
    std::uint64_t m_packed = 0;
    std::uint64_t m_unpacked = 0;
};

/// The beginning of the value, more than any boolean is long, without white space around it.
std::string shortText(const char* text, MRL_Streamable* streamable) {
    MRL_String value;
    if (text != nullptr) {
        value.append(std::string_view(text).substr(0, 64));
    } else {
        streamable->readFully(value, 64);
        streamable->close();
    }
    value.trim();
    return std::string(value.view());
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
    std::unique_ptr<MRL_HrefReference> reference(
        hblNew<MRL_HrefReference>(HBL_HERE, contentId, object, name, type, index));
    m_references.push_back(std::move(reference));
    m_places[m_references.back()->getContentId()].push_back(m_references.size() - 1);
}

int MRL_AttachmentHandler::resolveReferences(TavelTKMessageReader& reader, MRLObjectRegistryI& registry,
                                             ContainerFactory containerFactory) {
    const auto readAll = [&] {
        Unpacking unpacking;
        while (reader.hasMoreAttachments() != 0) {
            MRL_AttachmentContainerI* const container =
                adopted(registry, containerFactory != nullptr ? containerFactory()
                                                              : hblNew<DefaultAttachmentContainer>(HBL_HERE));
            OpenAttachment attachment(reader);
            const std::string contentId = unframed(attachment->getContentID());
            unpacking.readInto(*container, *attachment);
            resolveAttachment(contentId, *container, registry);
            attachment.close();
        }
    };
    if (reader.canHaveAttachments() != 0) {
        hblRethrowing("MRL_AttachmentHandler::resolveReferences", readAll);
    }
    dropServed();
    return m_references.empty() ? 1 : 0;
}

void MRL_AttachmentHandler::resolveAttachment(const std::string& contentId,
                                              MRL_AttachmentContainerI& container,
                                              MRLObjectRegistryI& registry) {
    const auto found = m_places.find(contentId);
    if (found == m_places.end()) {
        return;
    }
    for (const std::size_t place : found->second) {
        serve(*m_references[place], container, registry);
        m_references[place].reset();
    }
    m_places.erase(found);
}

void MRL_AttachmentHandler::dropServed() {
    std::erase(m_references, nullptr);
    m_places.clear();
    for (std::size_t place = 0; place < m_references.size(); ++place) {
        m_places[m_references[place]->getContentId()].push_back(place);
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
    if (reference.getType() == MRLSchemaTypeI::eBoolean) {
        int* const value = adopted(registry, hblNew<int>(HBL_HERE, 0), MRLObjectRegistryI::eRSDeleteScalar1);
        *value = mrl::detail::toBoolean(shortText(text, pStreamable), name);
        object.setChildObject(name, value, MRLSchemaTypeI::eBoolean, place);
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
