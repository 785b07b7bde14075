// Writing a request, and copying its text.
#include <cstdlib>
#include <cstring>
#include <utility>

#include "cim_client.h"
#include "sample.h"

namespace bench {
namespace {

// Small requests are written often.
int repetitions_for(const std::string& text) { return text.size() < 100'000 ? 100 : 1; }

// A request whose records come from its text.
class Generate : public Work {
 public:
  explicit Generate(const std::string& text)
      : tree_(parseXML(text.c_str())), repetitions_(repetitions_for(text)) {
    if (!tree_) std::abort();
  }
  ~Generate() override { Free_CIM(tree_); }
  void run() override {
    for (int i = 0; i < repetitions_; ++i) {
      char* text = nullptr;
      Gen_CIM(tree_, &text);
      std::free(text);
    }
  }
  int repetitions() const override { return repetitions_; }
  std::string digest() const override {
    char* text = nullptr;
    Gen_CIM(tree_, &text);
    std::string digest = std::to_string(std::strlen(text));
    std::free(text);
    return digest;
  }

 private:
  CIM* tree_;
  int repetitions_;
};

// What it would cost if the text were there already.
class CopyOfText : public Work {
 public:
  explicit CopyOfText(const std::string& text) : repetitions_(repetitions_for(text)) {
    CIM* tree = parseXML(text.c_str());
    char* written = nullptr;
    Gen_CIM(tree, &written);
    text_ = written;
    std::free(written);
    Free_CIM(tree);
    copy_.resize(text_.size());
  }
  void run() override {
    for (int i = 0; i < repetitions_; ++i) {
      std::memcpy(copy_.data(), text_.data(), text_.size());
      asm volatile("" : : "r"(copy_.data()) : "memory");  // the copy is wanted
    }
  }
  int repetitions() const override { return repetitions_; }
  std::string digest() const override { return std::to_string(copy_.size()); }

 private:
  std::string text_;
  std::string copy_;
  int repetitions_;
};

}  // namespace

std::unique_ptr<Work> writing_work(std::string_view name, std::string document) {
  if (name == "write") return std::make_unique<Generate>(document);
  if (name == "memcpy") return std::make_unique<CopyOfText>(document);
  return nullptr;
}

}  // namespace bench
