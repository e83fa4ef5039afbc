#include "fuzz/Targets.h"

#include "Session/MRLBusSettings.h"
#include "Session/detail/PropertyAccess.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLDOMObjectDeserializer.h"
#include "serialization/MRLReaderLimits.h"
#include "serialization/MRLSOAPMessageIDeserializer.h"
#include "serialization/MRLSOAPMessageISerializer.h"

#include "HBLCFGAPI/HBLConfigurationError.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQBase64InputStream.h"
#include "PLQStreams/PLQBase64OutputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "PLQStreams/PLQXmlEncodeOutputStream.h"
#include "TavelTK/detail/MultipartReader.h"
#include "logipf2/LogConfigurationError.h"
#include "logipf2/detail/LogConfiguration.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace mrl::fuzz {

namespace {

using Binding = HBLSmartPointer<MRLPortTypeBinding>;

/// What must hold whatever the input is. Ends the process, so that no handler takes it for a refusal.
void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Small enough that no input makes a run long.
MRLReaderLimits limits() {
    MRLReaderLimits limits;
    limits.totalBytes = 1024 * 1024;
    limits.markupLength = 256 * 1024;
    return limits;
}

/// Whatever has been read can be written.
void write(MRLPortTypeBinding& binding, MRLMessageI& message) {
    PLQMemoryOutputStream out(4096, 0);
    MRLSOAPMessageISerializer().serialize(binding, message, out, nullptr, 1, 0);
}

std::string decoded(std::string_view text) {
    PLQMemoryInputStream in(text.data(), text.size());
    PLQBase64InputStream decoder(in);
    std::string bytes;
    std::array<char, 7> piece;
    for (std::size_t n; !PLQInputStream::isEnd(n = decoder.read(piece.data(), piece.size()));) {
        bytes.append(piece.data(), n);
    }
    return bytes;
}

} // namespace

void readReply(std::string_view input) {
    const Binding binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
        MRLMessageI::eMRLContentQuery_Request));
    try {
        PLQMemoryInputStream in(input.data(), input.size());
        MRLSOAPMessageIDeserializer reader;
        reader.setLimits(limits());
        reader.parse(in, *binding, binding->getOutputMessage());
        write(*binding, binding->getOutputMessage());
    } catch (const HBLThrowable&) { // refused
    }
}

void readRequest(std::string_view input) {
    const std::vector<MRLPortTypeI*> portTypes{&MRLContentManagerServicePortType::getInstance()};
    try {
        PLQMemoryInputStream in(input.data(), input.size());
        MRLSOAPMessageIDeserializer reader;
        reader.setLimits(limits());
        Binding binding;
        reader.parse(in, portTypes, binding);
        write(*binding, binding->getInputMessage());
    } catch (const HBLThrowable&) { // refused
    }
}

void readDocument(std::string_view input) {
    HBLIDOM::Parser parser;
    HBLIDOM::Document document;
    const HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistryFactory::getInstance().create());
    try {
        if (parser.parse(input.data(), input.size(), document) != 0) {
            MRLDOMObjectDeserializer().deserialize(document.getDocumentElement(), *registry);
        }
    } catch (const HBLThrowable&) { // refused
    }
}

void readMultipart(std::string_view input) {
    struct Refused {};
    class Pieces : public detail::ByteSource {
    public:
        Pieces(std::string_view bytes, std::size_t piece)
            : m_bytes(bytes)
            , m_piece(piece) {}
        std::size_t read(char* buffer, std::size_t size) override {
            const std::size_t count = std::min({size, m_piece, m_bytes.size()});
            std::copy_n(m_bytes.data(), count, buffer);
            m_bytes.remove_prefix(count);
            return count;
        }

    private:
        std::string_view m_bytes;
        std::size_t m_piece;
    };
    if (input.empty()) {
        return;
    }
    const std::size_t piece = static_cast<unsigned char>(input.front()) + 1u;
    Pieces source(input.substr(1), piece);
    try {
        detail::MultipartReader reader(
            source, "b", 1000, 100,
            [](detail::MultipartReader::Fault, const std::string&) { throw Refused(); });
        std::size_t total = 0;
        std::array<char, 61> buffer;
        while (reader.next()) {
            while (const std::size_t count = reader.read(buffer.data(), buffer.size())) {
                require(count <= buffer.size());
                total += count;
            }
        }
        require(total < input.size()); // no byte comes from nowhere
    } catch (const Refused&) {         // and each refusal goes through the one place for it
    }
}

void decodeBase64(std::string_view input) {
    std::string bytes;
    try {
        bytes = decoded(input);
    } catch (const HBLThrowable&) { // no Base64: then the bytes themselves
        bytes = input;
    }
    PLQMemoryOutputStream text(64, 0);
    PLQBase64OutputStream encoder(text);
    encoder.write(bytes.data(), bytes.size());
    encoder.unWrap();
    require(decoded({text.bytes(), text.length()}) == bytes);
}

void encodeXml(std::string_view input) {
    // The first byte says where the text is cut in two: the writes must not show in the result.
    const std::size_t cut =
        input.empty() ? 0 : static_cast<unsigned char>(input.front()) % (input.size() + 1);
    const auto encoded = [&](std::size_t first) {
        PLQMemoryOutputStream out(64, 0);
        PLQXmlEncodeOutputStream encoder(out);
        encoder.write(input.data(), first);
        encoder.write(input.data() + first, input.size() - first);
        encoder.unWrap();
        return std::string(out.bytes(), out.length());
    };
    const std::string whole = encoded(input.size());
    require(encoded(cut) == whole);
    require(whole.find_first_of("<>\"'\r") == std::string::npos);

    // Always well-formed, so that a reader takes it.
    const std::string document =
        R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/"><e:Header><x>)" + whole +
        "</x></e:Header><e:Body><r/></e:Body></e:Envelope>";
    const Binding binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
        MRLMessageI::eMRLContentQuery_Request));
    PLQMemoryInputStream in(document.data(), document.size());
    MRLSOAPMessageIDeserializer().parse(in, *binding, binding->getOutputMessage());
}

namespace {

/// A file of this process that is written over and over, and goes with it.
class InputFile {
public:
    ~InputFile() { std::filesystem::remove(m_path); }
    const std::string& holding(std::string_view input) {
        std::ofstream(m_path, std::ios::binary)
            .write(input.data(), static_cast<std::streamsize>(input.size()));
        return m_path;
    }

private:
    const std::string m_path =
        std::filesystem::temp_directory_path() / ("mrl_fuzz_" + std::to_string(::getpid()));
};

void readLogging(const std::string& path) {
    try {
        detail::readLogConfiguration(path).effective("Audit.RTUsage.MRL");
    } catch (const LogConfigurationError&) { // refused
    }
}

/// The store refuses nothing: what it cannot use is not there.
void readProperties(const std::string& path) {
    detail::PropertyAccess::setConfigFile(path);
    unsigned number = 0;
    I18NString text;
    const int isNumber = MRLProperty::getInstance().getValue("outputBufferSize", number);
    require(isNumber == 0 || MRLProperty::getInstance().getValue("outputBufferSize", text) != 0);
}

} // namespace

void readConfiguration(std::string_view input) {
    static InputFile s_file;
    const std::string& path = s_file.holding(input);
    if (input.starts_with('{')) {
        return readLogging(path);
    }
    readProperties(path);
    const auto document = HBLConfigurationDocument::read(path);
    try {
        document.requireSound();
    } catch (const HBLConfigurationError&) {
        return;
    }
    for (const HBLConfigurationProperty& property : document.getProperties()) {
        HBLIDOM_Parser parser;
        HBLIDOM_Document tree;
        require(!property.isTree || parser.parse(property.value.data(), property.value.size(), tree) != 0);
        MRLBusSettings::check(property);
    }
}

std::span<const NamedTarget> targets() {
    static constexpr NamedTarget all[] = {{"reply", readReply},         {"request", readRequest},
                                          {"document", readDocument},   {"multipart", readMultipart},
                                          {"base64", decodeBase64},     {"xml", encodeXml},
                                          {"config", readConfiguration}};
    return all;
}

} // namespace mrl::fuzz
