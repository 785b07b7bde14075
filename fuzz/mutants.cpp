// Runs a fuzz target without libFuzzer: mutants of the seeds, the same ones in each run.
//
//   fuzz_TARGET_mutants [seconds=N] [mutants=N] [from=N] DICTIONARY SEED-FILE-OR-FOLDER...
//
// Says how many it has run.  The first mutant that the target does not survive is in the file
// "mutant" of the working folder, and its number (from=N runs it again) on standard error.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

// NOLINTBEGIN(readability-identifier-naming,bugprone-reserved-identifier)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" [[gnu::weak]] void __sanitizer_set_death_callback(void (*callback)());
// NOLINTEND(readability-identifier-naming,bugprone-reserved-identifier)

namespace {

namespace fs = std::filesystem;

struct Settings {
  double seconds = 60;
  std::uint64_t mutants = UINT64_MAX;
  std::uint64_t from = 0;
};

// Numbers that depend on the mutant's number alone (SplitMix64).
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U) {}

  std::size_t below(std::size_t limit) {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return static_cast<std::size_t>((mixed ^ (mixed >> 31U)) % limit);
  }

 private:
  std::uint64_t state_;
};

constexpr std::size_t longest_mutant = 4096;  // bytes

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> read_seeds(const std::vector<fs::path>& places) {
  std::vector<fs::path> files;
  for (const fs::path& place : places) {
    if (!fs::is_directory(place)) {
      files.push_back(place);
      continue;
    }
    for (const auto& entry : fs::directory_iterator(place)) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  std::vector<std::string> seeds;
  seeds.reserve(files.size());
  for (const fs::path& file : files) seeds.push_back(contents(file));
  return seeds;
}

// The text between the quotes of a line; \" \\ and \xHH stand for bytes.
std::string unquoted(std::string_view line) {
  const std::size_t begin = line.find('"') + 1;
  const std::size_t end = line.rfind('"');
  std::string token;
  for (std::size_t i = begin; i < end; ++i) {
    const bool escaped = line[i] == '\\';
    if (escaped) ++i;
    if (escaped && line[i] == 'x') {
      token += static_cast<char>(std::stoi(std::string(line.substr(i + 1, 2)), nullptr, 16));
      i += 2;
    } else {
      token += line[i];
    }
  }
  return token;
}

// libFuzzer's format: one token in quotes on each line, # begins a comment.
std::vector<std::string> read_dictionary(const fs::path& path) {
  std::ifstream file(path);
  std::vector<std::string> tokens;
  for (std::string line; std::getline(file, line);)
    if (!line.empty() && line.front() != '#') tokens.push_back(unquoted(line));
  return tokens;
}

class Mutants {
 public:
  Mutants(std::vector<std::string> seeds, std::vector<std::string> tokens)
      : seeds_(std::move(seeds)), tokens_(std::move(tokens)) {}

  std::size_t seeds() const { return seeds_.size(); }

  // The seeds themselves come first.
  std::string operator[](std::uint64_t number) const {
    if (number < seeds_.size()) return seeds_[static_cast<std::size_t>(number)];
    Chance chance(number);
    std::string text = any(seeds_, chance);
    for (std::size_t left = 1 + chance.below(4); left > 0; --left) mutate(text, chance);
    if (text.size() > longest_mutant) text.resize(longest_mutant);
    return text;
  }

 private:
  static const std::string& any(const std::vector<std::string>& texts, Chance& chance) {
    return texts[chance.below(texts.size())];
  }

  static std::string piece_of(const std::string& text, Chance& chance) {
    const std::size_t begin = chance.below(text.size() + 1);
    return text.substr(begin, 1 + chance.below(32));
  }

  void mutate(std::string& text, Chance& chance) const {
    const std::size_t at = chance.below(text.size() + 1);
    switch (chance.below(8)) {
      case 0:
        if (at < text.size()) text[at] = static_cast<char>(chance.below(256));
        break;
      case 1:
        if (at < text.size()) text[at] = static_cast<char>(text[at] ^ (1 << chance.below(8)));
        break;
      case 2:
        text.erase(at, 1 + chance.below(8));
        break;
      case 3:
      case 4:
        text.insert(at, any(tokens_, chance));
        break;
      case 5:
        text.replace(at, std::min(chance.below(8), text.size() - at), any(tokens_, chance));
        break;
      case 6:
        text.insert(at, piece_of(text, chance));
        break;
      default:
        text.insert(at, piece_of(any(seeds_, chance), chance));
        break;
    }
  }

  std::vector<std::string> seeds_;
  std::vector<std::string> tokens_;
};

std::uint64_t running = 0;
std::string running_text;

void keep_mutant() {
  std::ofstream("mutant", std::ios::binary) << running_text;
  std::fprintf(stderr, "the target did not survive mutant %llu, see the file \"mutant\"\n",
               static_cast<unsigned long long>(running));
}

void run(const Mutants& mutants, const Settings& settings) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::duration<double>(settings.seconds);
  std::uint64_t count = 0;
  for (; count < settings.mutants; ++count) {
    if (count % 1024 == 0 && Clock::now() > end) break;
    running = settings.from + count;
    running_text = mutants[running];
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(running_text.data()),
                           running_text.size());
    if ((count + 1) % 1'000'000 == 0)
      std::fprintf(stderr, "%llu mutants\n", static_cast<unsigned long long>(count + 1));
  }
  std::printf("%llu mutants of %zu seeds, none apart\n", static_cast<unsigned long long>(count),
              mutants.seeds());
}

// Takes NAME=VALUE; false when the argument is something else.
bool take_setting(std::string_view argument, Settings& settings) {
  const std::size_t equals = argument.find('=');
  const std::string_view name = argument.substr(0, equals);
  if (equals == std::string_view::npos) return false;
  const std::string value(argument.substr(equals + 1));
  if (name == "seconds")
    settings.seconds = std::stod(value);
  else if (name == "mutants")
    settings.mutants = std::stoull(value);
  else if (name == "from")
    settings.from = std::stoull(value);
  else
    return false;
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  Settings settings;
  std::vector<fs::path> places;
  for (int i = 1; i < count; ++i)
    if (!take_setting(arguments[i], settings)) places.emplace_back(arguments[i]);
  if (places.size() < 2) {
    std::fprintf(stderr, "usage: %s [seconds=N] [mutants=N] [from=N] DICTIONARY SEEDS...\n",
                 arguments[0]);
    return 2;
  }
  std::vector<std::string> tokens = read_dictionary(places.front());
  std::vector<std::string> seeds = read_seeds({places.begin() + 1, places.end()});
  if (tokens.empty() || seeds.empty()) {
    std::fprintf(stderr, "no tokens or no seeds\n");
    return 2;
  }
  if (__sanitizer_set_death_callback) __sanitizer_set_death_callback(keep_mutant);
  std::signal(SIGABRT, [](int) { keep_mutant(); });
  run(Mutants(std::move(seeds), std::move(tokens)), settings);
  return 0;
}
