// Takes one sample in a process of its own:
//
//   bench_sample WORK DOCUMENT SIZE cold|warm
//
// prints one line of JSON: "ns" of the work, "bytes" of the document, "peak" bytes by which
// memory grew, "digest" of the result.  Cold is the first run of this process; warm the median
// of many, with an allocator that keeps its memory.
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

#include "documents.h"
#include "sample.h"

namespace bench {
namespace {

constexpr int least_runs = 5;
constexpr int most_runs = 2000;
constexpr double enough = 0.15e9;  // ns of measured work

double now(clockid_t clock) {
  timespec time;
  clock_gettime(clock, &time);
  return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

double timed_run(Work& work) {
  work.before();
  const double start = now(work.clock());
  work.run();
  const double end = now(work.clock());
  work.after();
  return (end - start) / work.repetitions();
}

double warm(Work& work) {
  mallopt(M_TRIM_THRESHOLD, 2'000'000'000);
  mallopt(M_MMAP_THRESHOLD, 2'000'000'000);
  for (int i = 0; i < 2; ++i) timed_run(work);
  std::vector<double> times;
  double sum = 0;
  while (times.size() < most_runs && (times.size() < least_runs || sum < enough)) {
    times.push_back(timed_run(work));
    sum += times.back();
  }
  std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size()) / 2, times.end());
  return times[times.size() / 2];
}

// Bytes of this process's memory, by the name of /proc/self/status.
long memory(const char* name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  long kilobytes = 0;
  while (status >> word)
    if (word == name) status >> kilobytes;
  return kilobytes * 1024;
}

std::unique_ptr<Work> work_named(std::string_view name, const std::string& text, int size) {
  for (auto* factory : {reading_work, record_work, writing_work, exchange_work})
    if (auto work = factory(name, text)) return work;
  return local_work(name, size);
}

int run(const char* name, const char* document_name, int size, bool is_warm) {
  const std::string text = document(document_name, size);
  const auto work = work_named(name, text, size);
  if (!work) {
    std::fprintf(stderr, "no such work or document: %s %s\n", name, document_name);
    return 2;
  }
  std::ofstream("/proc/self/clear_refs") << 5;  // the peak begins here
  const long before = memory("VmRSS:");
  const double ns = is_warm ? warm(*work) : timed_run(*work);
  const long peak = memory("VmHWM:") - before;
  std::printf("{\"ns\": %.1f, \"bytes\": %zu, \"peak\": %ld, \"digest\": \"%s\"}\n", ns,
              text.size(), peak, work->digest().c_str());
  return 0;
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  if (count != 5 ||
      (std::strcmp(arguments[4], "cold") != 0 && std::strcmp(arguments[4], "warm") != 0)) {
    std::fprintf(stderr, "usage: %s WORK DOCUMENT SIZE cold|warm\n", arguments[0]);
    return 2;
  }
  return bench::run(arguments[1], arguments[2], std::atoi(arguments[3]),
                    std::strcmp(arguments[4], "warm") == 0);
}
