// Hostile inputs of some megabytes: what each costs, in processor time and in memory.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/engines.h"
#include "support/footprint.h"

namespace {

constexpr std::size_t size = 4'000'000;  // bytes, about

std::string repeated(const std::string& piece) {
  std::string text;
  while (text.size() < size) text += piece;
  return text;
}

// Each piece with another number in it, where it has a "#".
std::string numbered(const std::string& piece) {
  const std::size_t at = piece.find('#');
  std::string text;
  for (int i = 0; text.size() < size; ++i)
    text += piece.substr(0, at) + std::to_string(i) + piece.substr(at + 1);
  return text;
}

std::string closed(const std::string& tag, const std::string& end_tag) {
  std::string text;
  for (std::size_t i = 0; i < size / (tag.size() + end_tag.size()); ++i) text += tag;
  for (std::size_t i = 0; i < size / (tag.size() + end_tag.size()); ++i) text += end_tag;
  return text;
}

// Whether every access is watched, by valgrind or a sanitizer, or made by an emulator: that costs
// more time and memory than the bounds allow.
bool is_watched() {
  const char* preloaded = std::getenv("LD_PRELOAD");
  return support::is_watched() || (preloaded && std::strstr(preloaded, "vgpreload"));
}

struct Cost {
  double seconds = 0;  // of processor time
  double memory = 0;   // bytes at the most, beside the text
  bool accepted = false;
};

double processor_seconds() {
  timespec time = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double resident_bytes() {
  long pages = 0;
  std::FILE* file = std::fopen("/proc/self/statm", "r");
  if (!file) return 0;
  if (std::fscanf(file, "%*d %ld", &pages) != 1) pages = 0;  // NOLINT(cert-err34-c)
  std::fclose(file);
  return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// Lets the process's peak begin anew (proc(5), clear_refs).
void forget_peak_of_memory() {
  std::FILE* file = std::fopen("/proc/self/clear_refs", "w");
  if (!file) return;
  std::fputs("5", file);
  std::fclose(file);
}

// The scanner, and Expat where it leaves the text to it.
bool is_accepted(const char* text) {
  const engines::Reading own = engines::scanned(text);
  if (own.left() == engines::Left::Nothing) return own.root() != nullptr;
  return engines::read_by_expat(text).root() != nullptr;
}

// In a process of its own, to which what this one has released is not at hand.
Cost cost_of(const std::string& text) {
  Cost cost;
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    malloc_trim(0);
    forget_peak_of_memory();
    const double before = resident_bytes();
    const double start = processor_seconds();
    cost.accepted = is_accepted(text.c_str());
    cost.seconds = processor_seconds() - start;
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    cost.memory = static_cast<double>(usage.ru_maxrss) * 1024 - before;
    _exit(write(ends[1], &cost, sizeof(cost)) == sizeof(cost) ? 0 : 1);
  }
  EXPECT_EQ(read(ends[0], &cost, sizeof(cost)), static_cast<ssize_t>(sizeof(cost)));
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  close(ends[0]);
  close(ends[1]);
  return cost;
}

struct Hostile {
  const char* name;
  std::string text;
  bool accepted = false;
};

std::ostream& operator<<(std::ostream& out, const Hostile& input) { return out << input.name; }

// clang-format off
const Hostile inputs[] = {
  // ---- Entities
  {"billion_laughs",
   "<!DOCTYPE a [<!ENTITY b 'ha'><!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>"
   "<!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'><!ENTITY e '&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;'>]><a>" +
   repeated("&e;") + "</a>"},
  {"one_large_entity_used_often",
   "<!DOCTYPE a [<!ENTITY b '" + std::string(size / 2, 'x') + "'>]><a>" + repeated("&b;") + "</a>"},
  {"parameter_entities", "<!DOCTYPE a [" + repeated("<!ENTITY % b '%b;'>%b;") + "]><a/>"},
  {"undeclared_entities", "<a>" + repeated("&b;")},

  // ---- Document type declarations
  {"deep_content_model", "<!DOCTYPE a [<!ELEMENT a " + std::string(size, '(')},
  {"many_attribute_declarations", "<!DOCTYPE a [" + numbered("<!ATTLIST a b# CDATA 'x'>") + "]><a/>"},
  {"large_attribute_defaults",
   "<!DOCTYPE a [<!ATTLIST b c CDATA '" + std::string(10000, 'x') + "'>]><a>" + repeated("<b/>") + "</a>"},
  {"endless_system_identifier", "<!DOCTYPE a SYSTEM '" + std::string(size, 'x')},

  // ---- Depth and width
  {"deep", closed("<a>", "</a>"), true},
  {"deep_and_not_closed", repeated("<a>")},
  {"deep_with_attributes_and_not_closed", repeated("<a b=''>")},
  {"deep_with_distinct_names_and_not_closed", numbered("<a#>")},
  {"deep_and_closed_by_another_tag", repeated("<abcdefgh>") + "</a>"},
  {"one_tag_of_distinct_attributes", "<a" + numbered(" b#=''") + "/>", true},
  {"one_tag_of_distinct_attributes_and_one_doubled", "<a" + numbered(" b#=''") + " b9999=''/>"},
  {"distinct_names", "<a>" + numbered("<b#/>") + "</a>", true},
  {"attributes_that_are_all_the_same", "<a" + repeated(" b=''") + "/>"},

  // ---- Tokens that do not end
  {"endless_name", "<" + std::string(size, 'a')},
  {"long_name_in_both_tags", "<" + std::string(size, 'a') + "></" + std::string(size, 'a') + ">", true},
  {"endless_value", "<a b='" + std::string(size, 'x')},
  {"endless_white_space_in_a_tag", "<a" + std::string(size, ' ')},
  {"endless_comment_of_hyphens", "<!--" + repeated("- ")},
  {"endless_instruction_of_question_marks", "<?i " + std::string(size, '?')},
  {"endless_section_of_brackets", "<a><![CDATA[" + std::string(size, ']')},
  {"endless_reference", "<a>&" + std::string(size, 'a')},
  {"endless_number", "<a>&#" + std::string(size, '1')},

  // ---- Floods
  {"less_signs", repeated("<")},
  {"ampersands", "<a>" + repeated("&")},
  {"brackets_in_text", "<a>" + repeated("]") + "</a>", true},
  {"references_in_text", "<a>" + repeated("&lt;") + "</a>", true},
  {"numbers_in_a_value", "<a b='" + repeated("&#65;") + "'/>", true},
  {"white_space_alone", "<a>" + repeated(" \r\n\t") + "</a>", true},
  {"carriage_returns", "<a>" + repeated("\r") + "</a>", true},
  {"comments", "<a>" + repeated("<!---->") + "</a>", true},
  {"comments_between_blanks", "<a>" + repeated(" <!---->") + "</a>", true},
  {"sections", "<a>" + repeated("<![CDATA[]]>") + "</a>", true},
  {"instructions", repeated("<?i?>") + "<a/>", true},
  {"characters_of_several_bytes", "<a>" + repeated("\xE4\xB8\xAD") + "</a>", true},
  {"bytes_that_begin_nothing", "<a>" + repeated("\x80") + "</a>"},
};
// clang-format on

class HostileInput : public testing::TestWithParam<Hostile> {};

// What a process needs before it has read a byte, and the last large page of what it has used.
constexpr double slack = 4e6;  // bytes

TEST_P(HostileInput, costs_less_than_a_second_and_16_times_its_size) {
  const Cost cost = cost_of(GetParam().text);
  EXPECT_EQ(cost.accepted, GetParam().accepted);
  if (is_watched()) return;
  EXPECT_LT(cost.seconds, 1);
  EXPECT_LT(cost.memory, 16 * static_cast<double>(GetParam().text.size()) + slack);
}

INSTANTIATE_TEST_SUITE_P(Xml, HostileInput, testing::ValuesIn(inputs),
                         [](const auto& test) { return std::string(test.param.name); });

// The densest documents there are: a node record has 56 bytes (on 64-bit machines), whatever it
// stands for.
TEST(DenseDocument, costs_a_record_for_each_node_and_little_else) {
  if (is_watched()) return;
  const double node = sizeof(XmlNode);
  const std::string elements = "<r>" + repeated("<a/>") + "</r>";
  EXPECT_LT(cost_of(elements).memory, node / 4 * static_cast<double>(elements.size()) + slack);
  const std::string texts = "<r>" + repeated("x<a/>") + "</r>";
  EXPECT_LT(cost_of(texts).memory, (2 * node + 8) / 5 * static_cast<double>(texts.size()) + slack);
}

}  // namespace
