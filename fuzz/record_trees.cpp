// Arbitrary trees of records, written, and what was written read again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <vector>

#include "cim_client.h"
#include "support/record_members.h"

namespace {

// The input, taken from its beginning; zeros behind its end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  unsigned number() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }

  // Null, or a text of up to 15 bytes.
  char* text() {
    const unsigned kind = number();
    if (kind < 64) return nullptr;
    const std::size_t length = std::min<std::size_t>(kind % 16, left_);
    auto* text = static_cast<char*>(std::calloc(length + 1, 1));
    std::memcpy(text, data_, length);
    data_ += length;
    left_ -= length;
    return text;
  }

  bool at_end() const { return left_ == 0; }

 private:
  const std::uint8_t* data_;
  std::size_t left_;
};

constexpr int deepest = 12;

template <class R>
R* grow(Input& input, int depth) {
  if (depth == 0 || input.at_end() || input.number() % 3 == 0) return nullptr;
  auto* record = static_cast<R*>(std::calloc(1, sizeof(R)));
  support::for_each_member(*record, [&]<class Member>(Member& member) {
    if constexpr (std::is_same_v<Member, char*>) {
      member = input.text();
    } else if constexpr (std::is_pointer_v<Member>) {
      // What a parameter of an operation holds is borrowed.
      if constexpr (!std::is_same_v<R, IParamValue> || std::is_same_v<Member, R*>)
        member = grow<std::remove_pointer_t<Member>>(input, depth - 1);
    } else {
      member = static_cast<Member>(input.number());
    }
  });
  return record;
}

// The lists that writing takes out of an embedded instance, to be put back.
struct Embedded {
  Instance* instance;
  Property* properties;
  PropertyArray* arrays;
};

template <class R>
void find_embedded(R* record, std::vector<Embedded>& found) {
  if (!record) return;
  if constexpr (std::is_same_v<R, Value>) {
    if (Instance* instance = record->instance)
      found.push_back({instance, instance->properties, instance->propertyArrays});
  }
  support::for_each_member(*record, [&]<class Member>(Member& member) {
    if constexpr (std::is_pointer_v<Member> && !std::is_same_v<Member, char*>)
      find_embedded(member, found);
  });
}

// The text of a tree, which is released.
char* write_and_release(CIM* tree) {
  std::vector<Embedded> embedded;
  find_embedded(tree, embedded);
  char* text = nullptr;
  if (Gen_CIM(tree, &text) != 0 || !text) std::abort();
  for (const auto& [instance, properties, arrays] : embedded) {
    instance->properties = properties;
    instance->propertyArrays = arrays;
  }
  Free_CIM(tree);
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  CIM* tree = grow<CIM>(input, deepest);
  if (!tree) return 0;
  char* text = write_and_release(tree);
  tree = parseXML(text);
  std::free(text);
  if (!tree) return 0;
  std::free(write_and_release(tree));
  parseXML("");
  return 0;
}
