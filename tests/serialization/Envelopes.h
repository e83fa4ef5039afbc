#pragma once

#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLSOAPMessageIDeserializer.h"
#include "serialization/MRLSOAPMessageISerializer.h"
#include "support/Bytes.h"
#include "support/ChunkedStream.h"
#include "support/Files.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThrowable.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace mrl::test {

/// The sizes of the pieces that every reader test feeds its document in.
inline constexpr std::size_t chunkSizes[] = {1, 2, 3, 7, 4096};

/// An envelope as other stacks write it: other prefixes than the toolkit's own.
inline std::string envelopeOf(std::string_view sections) {
    return R"(<?xml version="1.0"?><s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/")"
           R"( xmlns:enc="http://schemas.xmlsoap.org/soap/encoding/")"
           R"( xmlns:b="http://developer.vantor.example/schemas/tavel/3/")"
           R"( xmlns:i="http://www.w3.org/2001/XMLSchema-instance")"
           R"( xmlns:x="http://www.w3.org/2001/XMLSchema">)" +
           std::string(sections) + "</s:Envelope>";
}

/// The reply of an operation with `params` in it.
inline std::string replyWith(std::string_view params) {
    return envelopeOf("<s:Body><r>" + std::string(params) + "</r></s:Body>");
}

inline std::string faultWith(std::string_view children) {
    return envelopeOf("<s:Body><s:Fault>" + std::string(children) + "</s:Fault></s:Body>");
}

/// `text` in "nothing", an "envelope", a "reply", or a "header" that the reader skips.
inline std::string placed(const std::string& place, const std::string& text) {
    return place == "nothing"    ? text
           : place == "envelope" ? envelopeOf(text)
           : place == "reply"    ? replyWith(text)
                              : envelopeOf("<s:Header><x>" + text + "</x></s:Header><s:Body><r/></s:Body>");
}

/// One call of the content manager, by the type of its request.
struct Call {
    explicit Call(MRLMessageI::MessageType request = MRLMessageI::eMRLContentQuery_Request)
        : binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(request)) {}

    MRLMessageI& request() const { return binding->getInputMessage(); }
    MRLMessageI& reply() const { return binding->getOutputMessage(); }

    /// Reads `document` as the reply, in pieces of `chunk` bytes.
    void read(std::string_view document, std::size_t chunk) {
        ChunkedStream stream(document, chunk);
        MRLSOAPMessageIDeserializer reader;
        reader.parse(stream, *binding, reply());
    }

    /// Reads `document` as the reply; pieces of every size must come to the same.
    void read(std::string_view document) {
        const auto outcome = [&](std::size_t chunk) -> std::string {
            Call call(request().getMessageType());
            try {
                call.read(document, chunk);
                return written([&](PLQOutputStream& out) {
                    MRLSOAPMessageISerializer().serialize(*call.binding, call.reply(), out, nullptr, 0, 0);
                });
            } catch (const HBLThrowable& e) {
                return std::string(e.getThrowableName()) + ": " + e.getMessage();
            }
        };
        const std::string whole = outcome(document.size() + 1);
        for (const std::size_t chunk : chunkSizes) {
            EXPECT_EQ(outcome(chunk), whole) << "in pieces of " << chunk;
        }
        read(document, document.size() + 1);
    }

    HBLSmartPointer<MRLPortTypeBinding> binding;
};

} // namespace mrl::test
