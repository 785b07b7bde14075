// Releasing and copying the records of an answer, by the library and by hand.
#include <cstdlib>
#include <utility>
#include <vector>

#include "by_hand.h"
#include "cim_client.h"
#include "sample.h"

namespace bench {
namespace {

// Works on the instances of a document that is read anew for every run.
class OnInstances : public Work {
 public:
  explicit OnInstances(std::string text) : text_(std::move(text)) {}
  void before() override {
    CIM* tree = parseXML(text_.c_str());
    instances_ = instances_of(tree);
    if (!instances_) std::abort();
    tree->message->simpleRsp->iMethodResponse->iReturnValue->namedInstance = nullptr;
    Free_CIM(tree);
  }

 protected:
  NamedInstance* taken() { return std::exchange(instances_, nullptr); }
  const NamedInstance* instances() const { return instances_; }

 private:
  std::string text_;
  NamedInstance* instances_ = nullptr;
};

class Release : public OnInstances {
 public:
  using OnInstances::OnInstances;
  void run() override { Free_NamedInstance(taken()); }
};

class ReleaseByHand : public OnInstances {
 public:
  using OnInstances::OnInstances;
  void run() override { free_by_hand(taken()); }
};

// The frees alone: nothing is looked at to find out what is to be freed.
class Frees : public OnInstances {
 public:
  using OnInstances::OnInstances;
  void before() override {
    OnInstances::before();
    blocks_ = blocks_of(taken());
  }
  void run() override {
    for (const Block& block : blocks_) std::free(block.address);
  }

 private:
  std::vector<Block> blocks_;
};

class Copy : public OnInstances {
 public:
  using OnInstances::OnInstances;
  void run() override { Clone_NamedInstance(instances(), &copy_); }
  void after() override {
    digest_ = digest_of(copy_);
    Free_NamedInstance(std::exchange(copy_, nullptr));
    Free_NamedInstance(taken());
  }
  std::string digest() const override { return digest_; }

 protected:
  NamedInstance* copy_ = nullptr;

 private:
  std::string digest_;
};

class CopyByHand : public Copy {
 public:
  using Copy::Copy;
  void run() override { copy_ = copy_by_hand(instances()); }
};

// A list of as many properties as the document has bytes per hundred.
class Append : public Work {
 public:
  explicit Append(const std::string& text) : count_(text.size() / 100) {}
  void run() override {
    char value[] = "4200";
    for (std::size_t i = 0; i < count_; ++i)
      AddToProeprtyList(&list_, "DesiredSpeed", value, "uint64");
  }
  void after() override { Free_Property(std::exchange(list_, nullptr)); }

 private:
  std::size_t count_;
  Property* list_ = nullptr;
};

}  // namespace

std::unique_ptr<Work> record_work(std::string_view name, std::string document) {
  if (name == "release") return std::make_unique<Release>(std::move(document));
  if (name == "release-by-hand") return std::make_unique<ReleaseByHand>(std::move(document));
  if (name == "frees") return std::make_unique<Frees>(std::move(document));
  if (name == "copy") return std::make_unique<Copy>(std::move(document));
  if (name == "copy-by-hand") return std::make_unique<CopyByHand>(std::move(document));
  if (name == "append") return std::make_unique<Append>(document);
  return nullptr;
}

}  // namespace bench
