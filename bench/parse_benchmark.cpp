// How long the reader takes for an answer of EnumerateInstances: of 1,000 instances and of 100,000.
// For each instance the larger answer may take at most 1.2 times as long; compare the medians of
// "per_instance" (seconds):
//
//   parse_benchmark --benchmark_repetitions=5 --benchmark_report_aggregates_only
#include <benchmark/benchmark.h>

#include <ctime>
#include <string>

#include "XMLParser.h"
#include "cim_client.h"

namespace {

// Processor time of this thread in seconds: other programs do not count.
double now() {
  timespec time;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

std::string key(const char* name, const char* type, const std::string& value) {
  return std::string("<KEYBINDING NAME=\"") + name + "\">\n<KEYVALUE VALUETYPE=\"" + type + "\">" +
         value + "</KEYVALUE>\n</KEYBINDING>\n";
}

std::string property(const std::string& name, const char* type, const std::string& value) {
  return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\" CLASSORIGIN=\"CIM_Fan\">\n<VALUE>" +
         value + "</VALUE>\n</PROPERTY>\n";
}

std::string array(const char* name, const char* type) {
  return std::string("<PROPERTY.ARRAY NAME=\"") + name + "\" TYPE=\"" + type +
         "\">\n<VALUE.ARRAY>\n<VALUE>2</VALUE>\n<VALUE>5</VALUE>\n<VALUE>7</VALUE>\n"
         "</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n";
}

std::string name_of(const std::string& number) {
  return "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n" + key("CreationClassName", "string", "CIM_Fan") +
         key("DeviceID", "string", number) +
         key("SystemCreationClassName", "string", "CIM_ComputerSystem") +
         key("SystemName", "string", "enclosure-1.example") + "</INSTANCENAME>\n";
}

// As long as captions and descriptions are.
const std::string long_text =
    "The fan in the upper bay of the enclosure, seen from the front, which cools the cards behind "
    "it "
    "and is cooled by nothing";

// An instance with its name: four keys, seventeen properties, two arrays and a reference, in
// about 4.1 KB, with a line break after each tag as object managers put it.
std::string named_instance(int index) {
  const std::string number = "fan-" + std::to_string(100'000 + index);
  std::string text =
      "<VALUE.NAMEDINSTANCE>\n" + name_of(number) + "<INSTANCE CLASSNAME=\"CIM_Fan\">\n" +
      property("CreationClassName", "string", "CIM_Fan") + property("DeviceID", "string", number) +
      property("SystemCreationClassName", "string", "CIM_ComputerSystem") +
      property("SystemName", "string", "enclosure-1.example");
  for (int i = 0; i < 13; ++i)
    text += property("MeasuredProperty" + std::to_string(i), i % 2 ? "uint32" : "string",
                     i % 2 ? std::to_string(1000 * index + i) : long_text);
  return text + array("OperationalStatus", "uint16") + array("StatusDescriptions", "string") +
         "<PROPERTY.REFERENCE NAME=\"Cooled\" REFERENCECLASS=\"CIM_ManagedElement\">\n"
         "<VALUE.REFERENCE>\n" +
         name_of("card-1") +
         "</VALUE.REFERENCE>\n</PROPERTY.REFERENCE>\n</INSTANCE>\n</VALUE.NAMEDINSTANCE>\n";
}

std::string answer(int instances) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
      "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">\n<SIMPLERSP>\n"
      "<IMETHODRESPONSE NAME=\"EnumerateInstances\">\n<IRETURNVALUE>\n";
  for (int i = 0; i < instances; ++i) text += named_instance(i);
  return text + "</IRETURNVALUE>\n</IMETHODRESPONSE>\n</SIMPLERSP>\n</MESSAGE>\n</CIM>\n";
}

// Counts the instances, so that nothing but a whole tree is measured.
bool is_whole(const CIM* tree, int instances) {
  int count = 0;
  if (!tree) return false;
  const auto* response = tree->message->simpleRsp->iMethodResponse;
  for (const auto* i = response->iReturnValue->namedInstance; i; i = i->next) ++count;
  return count == instances;
}

void report(benchmark::State& state, const std::string& text, int instances) {
  state.counters["per_instance"] = benchmark::Counter(
      instances, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["bytes"] = static_cast<double>(text.size()) / instances;
}

// The reader; releasing the tree is not measured.
void parse(benchmark::State& state) {
  const int instances = static_cast<int>(state.range(0));
  const std::string text = answer(instances);
  for (auto _ : state) {
    const double start = now();
    CIM* tree = parseXML(text.c_str());
    state.SetIterationTime(now() - start);
    if (!is_whole(tree, instances)) state.SkipWithError("the answer was not read");
    Free_CIM(tree);
  }
  report(state, text, instances);
}

// The XML library's share of it.
void parse_xml_alone(benchmark::State& state) {
  const int instances = static_cast<int>(state.range(0));
  const std::string text = answer(instances);
  for (auto _ : state) {
    XmlParseState storage;
    const double start = now();
    XmlDocument* document = parseText(&storage, text.c_str());
    freeXMLDoc(document);
    state.SetIterationTime(now() - start);
    if (!document) state.SkipWithError("the answer was not read");
  }
  report(state, text, instances);
}

void release(benchmark::State& state) {
  const int instances = static_cast<int>(state.range(0));
  const std::string text = answer(instances);
  for (auto _ : state) {
    CIM* tree = parseXML(text.c_str());
    if (!is_whole(tree, instances)) state.SkipWithError("the answer was not read");
    const double start = now();
    Free_CIM(tree);
    state.SetIterationTime(now() - start);
  }
  report(state, text, instances);
}

BENCHMARK(parse)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(parse_xml_alone)
    ->Arg(1'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(release)->Arg(1'000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
