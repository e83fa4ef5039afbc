// Writing and reading a reply of report objects, beside the bare parser and a copy of the same bytes.
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
#include "support/Ratios.h"

#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "PLQStreams/PLQStreamInputSource.h"

#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <cstring>
#include <memory>
#include <string>

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

void perObject(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
    state.counters["ns/object"] =
        benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)) / 1e9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Write(benchmark::State& state) {
    const Binding binding = replyOf(state.range(0));
    std::size_t bytes = 0;
    PLQMemoryOutputStream out(1 << 16, 1 << 16);
    for (auto _ : state) {
        out.reset();
        write(binding, out);
        bytes = static_cast<std::size_t>(out.length());
    }
    perObject(state, bytes);
}

void Read(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    auto& factory = MRLSOAPMessageIDeserializerFactory::getInstance();
    for (auto _ : state) {
        const Binding binding = bind();
        PLQMemoryInputStream in(bytes.data(), bytes.size());
        MRLSOAPMessageIDeserializerI* deserializer = factory.create();
        deserializer->parse(in, *binding, binding->getOutputMessage());
        factory.destroy(deserializer);
    }
    perObject(state, bytes.size());
}

void BareParser(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    for (auto _ : state) {
        const std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
        xercesc::DefaultHandler handler;
        reader->setContentHandler(&handler);
        reader->setErrorHandler(&handler);
        reader->setProperty(xercesc::XMLUni::fgXercesScannerName,
                            const_cast<XMLCh*>(xercesc::XMLUni::fgWFXMLScanner));
        PLQMemoryInputStream in(bytes.data(), bytes.size());
        PLQStreamInputSource source(in);
        reader->parse(source);
    }
    perObject(state, bytes.size());
}

void Copy(benchmark::State& state) {
    const std::string bytes = bytesOf(state.range(0));
    std::string target(bytes.size(), '\0');
    for (auto _ : state) {
        std::memcpy(target.data(), bytes.data(), bytes.size());
        benchmark::ClobberMemory();
    }
    perObject(state, bytes.size());
}

BENCHMARK(Write)->Arg(10)->Arg(1000)->Arg(20000);
BENCHMARK(Read)->Arg(10)->Arg(1000)->Arg(20000);
BENCHMARK(BareParser)->Arg(10)->Arg(1000)->Arg(20000);
BENCHMARK(Copy)->Arg(10)->Arg(1000)->Arg(20000);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    xercesc::XMLPlatformUtils::Initialize();
    mrl::bench::Ratios reporter;
    reporter.compare("Read", "BareParser");
    reporter.compare("Write", "Copy");
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
