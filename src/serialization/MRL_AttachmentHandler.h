#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "Toolkit/MRL_HrefReference.h"

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <memory>
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

    /// Reads all attachments, and serves the references with them. An attachment that cannot be read to
    /// its end counts with what was read.
    /// @param registry takes the containers and values.
    /// @param containerFactory null keeps each attachment in memory.
    /// @return not 0 when no reference is left over.
    int resolveReferences(TavelTKMessageReader& reader, MRLObjectRegistryI& registry,
                          ContainerFactory containerFactory);

private:
    void resolveAttachment(const char* contentId, MRL_AttachmentContainerI& container,
                           MRLObjectRegistryI& registry);
    static void serve(const MRL_HrefReference& reference, MRL_AttachmentContainerI& container,
                      MRLObjectRegistryI& registry);

    std::vector<std::unique_ptr<MRL_HrefReference>> m_references;
};
