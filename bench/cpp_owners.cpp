// What owners and ranges of the C++ header cost over the C calls: prints the time of both forms of
// the same work for each record, and their ratio.  Alone: it needs nothing but the library.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "cim_client.hpp"

namespace {

using cim_client::Owner;

constexpr int list_length = 1000;
constexpr int rounds = 301;
constexpr int passes = 20;  // of one walk: the clock alone must not count

Property* make_list() {
  Property* list = nullptr;
  for (int i = 0; i < list_length; ++i) {
    std::string value = std::to_string(i);
    AddToProeprtyList(&list, "DesiredSpeed", value.data(), "uint64");
  }
  return list;
}

double now() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

// ---- The work, in both forms; not inlined, so that each is timed whole ----

[[gnu::noinline]] void release_in_c(Property* list) { Free_Property(list); }
[[gnu::noinline]] void release_in_cpp(Property* list) { const Owner<Property> owner(list); }

[[gnu::noinline]] std::size_t walk_in_c(Property* list) {
  std::size_t sum = 0;
  for (int again = 0; again < passes; ++again)
    for (const Property* property = list; property; property = property->next)
      sum += static_cast<unsigned char>(property->value->text[0]);
  return sum;
}
[[gnu::noinline]] std::size_t walk_in_cpp(const Owner<Property>& list) {
  std::size_t sum = 0;
  for (int again = 0; again < passes; ++again)
    for (const Property& property : list)
      sum += static_cast<unsigned char>(property.value->text[0]);
  return sum;
}

double median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
  return times[rounds / 2] / list_length;
}

template <class Work>
double time_of(Work work) {
  const double begin = now();
  work();
  return now() - begin;
}

void print(const char* what, const std::vector<double>& c, const std::vector<double>& cpp) {
  std::printf("%-8s C %7.2f ns  C++ %7.2f ns  ratio %.3f\n", what, median(c), median(cpp),
              median(cpp) / median(c));
}

}  // namespace

int main() {
  std::vector<double> c;
  std::vector<double> cpp;
  for (int i = 0; i < rounds; ++i) {
    Property* first = make_list();
    c.push_back(time_of([&] { release_in_c(first); }));
    Property* second = make_list();
    cpp.push_back(time_of([&] { release_in_cpp(second); }));
  }
  print("release", c, cpp);

  c.clear();
  cpp.clear();
  const Owner<Property> list(make_list());
  std::size_t difference = 0;
  for (int i = 0; i < rounds; ++i) {
    c.push_back(time_of([&] { difference += walk_in_c(list.get()); }) / passes);
    cpp.push_back(time_of([&] { difference -= walk_in_cpp(list); }) / passes);
  }
  print("walk", c, cpp);
  return difference == 0 ? 0 : 1;
}
