// Writing and reading a reply of report objects, beside rivals that get the same objects and the same bytes:
// the bare parser with an empty handler, a writer made by hand for just these objects, a copy of the bytes,
// and gSOAP with as many types where it is installed.
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLDateTimeProp.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLPositiveIntegerProp.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTokenProp.h"
#include "serialization/MRLSOAPMessageIDeserializerFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerI.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"
#include "support/Heap.h"
#include "support/Ratios.h"

#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#ifdef MRL_WITH_GSOAP
#include "gsoap/Peer.h"
#endif

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

using Binding = HBLSmartPointer<MRLPortTypeBinding>;

Binding bind() {
    return Binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
        MRLMessageI::eMRLContentQuery_Request));
}

/// A reply with `count` reports of six properties each.
Binding replyOf(long count) {
    Binding binding = bind();
    auto& reply = static_cast<MRLContentQuery_Reply&>(binding->getOutputMessage());
    MRLObjectRegistryI& registry = reply.getObjectRegistry();
    MRLBaseClassArray* result = reply.getResult(&registry);
    for (long i = 0; i < count; ++i) {
        auto* report = new MRLReport;
        registry.registerPointer(report);
        report->getDefaultName(&registry)->setValue("Quarterly revenue & margin");
        report->getSearchPath(&registry)->setValue(
            "/content/folder[@name='Sales']/report[@name='Quarterly']");
        report->getModificationTime(&registry)->setValue("2024-05-17T09:30:00.000Z");
        report->getVersion(&registry)->setValue(3);
        report->getHasChildren(&registry)->setValue(1);
        report->getDefaultDescription(&registry)->setValue("Revenue by region and product line");
        result->push_back(report);
    }
    return binding;
}

void write(const Binding& binding, PLQMemoryOutputStream& out) {
    auto& factory = MRLSOAPMessageISerializerFactory::getInstance();
    MRLSOAPMessageISerializerI* serializer = factory.create();
    serializer->serialize(*binding, binding->getOutputMessage(), out, nullptr, 1, 0);
    factory.destroy(serializer);
}

std::string bytesOf(long count) {
    const Binding binding = replyOf(count);
    PLQMemoryOutputStream out(1 << 16, 1 << 16);
    write(binding, out);
    return {out.bytes(), static_cast<std::size_t>(out.length())};
}

/// Runs `step` once for the heap and then for the clock.
/// @param bytes of the document that it reads or writes.
template <class Step>
void measure(benchmark::State& state, std::size_t bytes, const Step& step) {
    const auto objects = static_cast<double>(state.range(0));
    step(); // what is made once for the process is not the step's
    {
        const mrl::bench::HeapUse use;
        step();
        state.counters["allocs/object"] = static_cast<double>(use.allocations()) / objects;
        state.counters["peak B/object"] = static_cast<double>(use.peak()) / objects;
    }
    for (auto _ : state) {
        step();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
    state.counters["ns/object"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * objects / 1e9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Write(benchmark::State& state) {
    const Binding binding = replyOf(state.range(0));
    const std::size_t bytes = bytesOf(state.range(0)).size();
    PLQMemoryOutputStream out(bytes + 1024, 1 << 16);
    measure(state, bytes, [&] {
        out.reset();
        write(binding, out);
        benchmark::DoNotOptimize(out.bytes());
    });
}

void read(const std::string& bytes) {
    auto& factory = MRLSOAPMessageIDeserializerFactory::getInstance();
    const Binding binding = bind();
    PLQMemoryInputStream in(bytes.data(), bytes.size());
    MRLSOAPMessageIDeserializerI* deserializer = factory.create();
    deserializer->parse(in, *binding, binding->getOutputMessage());
    factory.destroy(deserializer);
}

void Read(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    measure(state, bytes.size(), [&] { read(bytes); });
}

void parseBare(const std::string& bytes, const XMLCh* scanner) {
    const std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
    xercesc::DefaultHandler handler;
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    if (scanner != nullptr) {
        reader->setProperty(xercesc::XMLUni::fgXercesScannerName, const_cast<XMLCh*>(scanner));
    }
    xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(), "reply");
    source.setCopyBufToStream(false);
    reader->parse(source);
}

void ParseBare(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    measure(state, bytes.size(), [&] { parseBare(bytes, xercesc::XMLUni::fgWFXMLScanner); });
}

void ParseDefault(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    measure(state, bytes.size(), [&] { parseBare(bytes, nullptr); });
}

// The same bytes as the toolkit writes, by pieces that were joined by hand and know nothing of any class.

void putEscaped(std::string& out, const char* text) {
    const char* run = text;
    for (const char* p = text;; ++p) {
        std::string_view entity;
        switch (*p) {
        case '&': entity = "&amp;"; break;
        case '<': entity = "&lt;"; break;
        case '>': entity = "&gt;"; break;
        case '"': entity = "&quot;"; break;
        case '\'': entity = "&apos;"; break;
        case '\0': out.append(run, p); return;
        default: continue;
        }
        out.append(run, p).append(entity);
        run = p + 1;
    }
}

void putNumber(std::string& out, int number) {
    char digits[16];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void putReport(std::string& out, const MRLReport& report) {
    out.append("\t\t\t\t<item xsi:type=\"bus:report\">\n"
               "\t\t\t\t\t<bus:defaultName xsi:type=\"bus:tokenProp\">\n"
               "\t\t\t\t\t\t<bus:value xsi:type=\"xs:string\">");
    putEscaped(out, report.getDefaultName()->getValue());
    out.append("</bus:value>\n"
               "\t\t\t\t\t</bus:defaultName>\n"
               "\t\t\t\t\t<bus:hasChildren xsi:type=\"bus:booleanProp\">\n"
               "\t\t\t\t\t\t<bus:value xsi:type=\"xs:boolean\">");
    out.append(*report.getHasChildren()->getValue() != 0 ? "true" : "false");
    out.append("</bus:value>\n"
               "\t\t\t\t\t</bus:hasChildren>\n"
               "\t\t\t\t\t<bus:modificationTime xsi:type=\"bus:dateTimeProp\">\n"
               "\t\t\t\t\t\t<bus:value xsi:type=\"xs:string\">");
    putEscaped(out, report.getModificationTime()->getValue());
    out.append("</bus:value>\n"
               "\t\t\t\t\t</bus:modificationTime>\n"
               "\t\t\t\t\t<bus:searchPath xsi:type=\"bus:stringProp\">\n"
               "\t\t\t\t\t\t<bus:value xsi:type=\"xs:string\">");
    putEscaped(out, report.getSearchPath()->getValue());
    out.append("</bus:value>\n"
               "\t\t\t\t\t</bus:searchPath>\n"
               "\t\t\t\t\t<bus:version xsi:type=\"bus:positiveIntegerProp\">\n"
               "\t\t\t\t\t\t<bus:value xsi:type=\"xs:integer\">");
    putNumber(out, *report.getVersion()->getValue());
    out.append("</bus:value>\n"
               "\t\t\t\t\t</bus:version>\n"
               "\t\t\t\t\t<bus:defaultDescription xsi:type=\"bus:stringProp\">\n"
               "\t\t\t\t\t\t<bus:value xsi:type=\"xs:string\">");
    putEscaped(out, report.getDefaultDescription()->getValue());
    out.append("</bus:value>\n"
               "\t\t\t\t\t</bus:defaultDescription>\n"
               "\t\t\t\t</item>\n");
}

void WriteByHand(benchmark::State& state) {
    const Binding binding = replyOf(state.range(0));
    auto& reply = static_cast<MRLContentQuery_Reply&>(binding->getOutputMessage());
    const std::string bytes = bytesOf(state.range(0));
    const std::size_t first = bytes.find("\t\t\t\t<item");
    const std::size_t last = bytes.rfind("</item>\n") + 8;
    std::string out;
    out.reserve(bytes.size());
    const auto step = [&] {
        out.assign(bytes, 0, first);
        for (const MRLBaseClass* const object : *reply.getResult()) {
            putReport(out, *static_cast<const MRLReport*>(object));
        }
        out.append(bytes, last);
        benchmark::DoNotOptimize(out.data());
    };
    step();
    if (out != bytes) {
        const auto at = static_cast<std::size_t>(
            std::mismatch(out.begin(), out.end(), bytes.begin(), bytes.end()).first - out.begin());
        state.SkipWithError(
            ("the writer made by hand differs behind: " + bytes.substr(at < 100 ? 0 : at - 100, 200))
                .c_str());
        return;
    }
    measure(state, bytes.size(), step);
}

#ifdef MRL_WITH_GSOAP
void ReadGsoap(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    if (mrl::bench::GsoapPeer::readAll(bytes) != state.range(0)) {
        state.SkipWithError("gSOAP did not read all objects");
        return;
    }
    measure(state, bytes.size(), [&] { mrl::bench::GsoapPeer::readAll(bytes); });
}

void WriteGsoap(benchmark::State& state) {
    mrl::bench::GsoapPeer peer;
    peer.read(bytesOf(state.range(0)));
    std::string out;
    peer.write(out);
    measure(state, out.size(), [&] {
        out.clear();
        peer.write(out);
        benchmark::DoNotOptimize(out.data());
    });
}
#endif

void Copy(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    std::string target(bytes.size(), '\0');
    measure(state, bytes.size(), [&] {
        std::memcpy(target.data(), bytes.data(), bytes.size());
        benchmark::ClobberMemory();
    });
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    for (const long count : {10, 1000, 20000}) {
        benchmark->Arg(count);
    }
    benchmark->MinTime(0.2)->Repetitions(5); // for the resolution
}

BENCHMARK(Write)->Apply(sizes);
BENCHMARK(WriteByHand)->Apply(sizes);
BENCHMARK(Read)->Apply(sizes);
BENCHMARK(ParseBare)->Apply(sizes);
BENCHMARK(ParseDefault)->Apply(sizes);
BENCHMARK(Copy)->Apply(sizes);
#ifdef MRL_WITH_GSOAP
BENCHMARK(ReadGsoap)->Apply(sizes);
BENCHMARK(WriteGsoap)->Apply(sizes);
#endif

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    xercesc::XMLPlatformUtils::Initialize();
    mrl::bench::Ratios reporter;
    reporter.compare("Read", "ParseBare", 1.5);
    reporter.compare("Read", "ParseDefault");
    reporter.compare("Write", "WriteByHand", 5);
    reporter.compare("Write", "Copy");
    reporter.compare("Read", "ReadGsoap", 0.9, {{"10", 1.5}}); // a small reply: making the parser counts too
    reporter.compare("Write", "WriteGsoap", 0.7);
    reporter.compareScale("Read", 20000, 1000, 1.15);
    reporter.compareScale("Write", 20000, 1000, 1.15);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
