#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "Toolkit/MRL_HrefReference.h"

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class MRLObjectRegistryI;
class MRL_AttachmentContainerI;
class TavelTKMessageReader;

/// Binds the attachments of a reply to the values that refer to them. Made for one reply: the reader of
/// the envelope notes the references, then resolveReferences() puts the values in their places. The
/// registry of the message must outlive it. One thread.
class MRL_EXPORT MRL_AttachmentHandler {
public:
    /// Makes a new container for the bytes of one attachment.
    using ContainerFactory = MRL_AttachmentContainerI* (*)();

    MRL_AttachmentHandler();
    virtual ~MRL_AttachmentHandler();
    MRL_AttachmentHandler(const MRL_AttachmentHandler&) = delete;
    MRL_AttachmentHandler& operator=(const MRL_AttachmentHandler&) = delete;

    /// The content id in an `href` of the form "cid:id", exactly; null for any other value.
    /// @return a pointer into `value`.
    static const char16_t* getCid(const char16_t* value);

    /// Notes that a child waits for the attachment `contentId`.
    /// @param object receives the value; borrowed.
    /// @param name the child; empty for the object's own text.
    /// @param index the place in an array, as setChildObject() returned it.
    void registerHref(const char* contentId, MRLSchemaTypeI* object, const char* name,
                      const MRLSchemaTypeI::ObjectType& type, std::size_t index);

    /// Reads all attachments, and serves the references with them: each reference with the first attachment
    /// of its content id, byte for byte. An attachment without a reference is read and kept unused; a
    /// reference without an attachment keeps its empty value. Packed attachments are unpacked, within
    /// MRLReaderLimits::unpackedBytes and unpackedRatio.
    /// @param registry takes the containers and values.
    /// @param containerFactory null keeps each attachment in memory.
    /// @return not 0 when no reference is left over.
    /// @throws PLQStreamError when a packed attachment is damaged or cut short; MRLException 0xa6441f8b when
    /// it unpacks to too much; what the stream of an attachment, its container or setChildObject() throws.
    /// Where the stream ends with an error value instead, what was read counts.
    int resolveReferences(TavelTKMessageReader& reader, MRLObjectRegistryI& registry,
                          ContainerFactory containerFactory);

private:
    void resolveAttachment(const std::string& contentId, MRL_AttachmentContainerI& container,
                           MRLObjectRegistryI& registry);
    void dropServed();
    static void serve(const MRL_HrefReference& reference, MRL_AttachmentContainerI& container,
                      MRLObjectRegistryI& registry);

    std::vector<std::unique_ptr<MRL_HrefReference>> m_references; // null where served, until dropServed()
    std::unordered_map<std::string, std::vector<std::size_t>> m_places; // in m_references, by content id
};
