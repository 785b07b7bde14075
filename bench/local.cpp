// A whole local enumeration, and its calls alone.  libcimcClientSfcbLocal.so must be found by the
// dynamic linker: the sandbox's, by LD_LIBRARY_PATH.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "by_hand.h"
#include "cim_client.h"
#include "clientapi/interface.h"
#include "sample.h"

namespace bench {
namespace {

using namespace cim::broker;

constexpr char name_space[] = "root/cimv2";
constexpr char class_name[] = "Bench_Fan";

// That many instances with a key and twenty properties.
std::string model(int instances) {
  std::string text =
      "class Bench_Fan { [Key] string DeviceID;\n"
      "  string Text0; string Text1; string Text2; string Text3; string Text4;\n"
      "  string Text5; string Text6; string Text7; string Text8; string Text9;\n"
      "  uint32 Number0; uint32 Number1; uint32 Number2; uint32 Number3; uint32 Number4;\n"
      "  uint32 Number5; uint32 Number6; uint32 Number7; uint32 Number8; uint32 Number9; };\n";
  for (int i = 0; i < instances; ++i) {
    text += "instance of Bench_Fan { DeviceID = \"fan" + std::to_string(i) + "\";";
    for (int property = 0; property < 10; ++property) {
      const std::string number = std::to_string(property);
      text += " Text" + number + " = \"The fan in the upper bay\"; Number" + number + " = 4200;";
    }
    text += " };\n";
  }
  return text;
}

class Local : public Work {
 public:
  explicit Local(int instances) {
    char file[] = "/tmp/bench-model-XXXXXX";
    const int descriptor = mkstemp(file);
    const std::string text = model(instances);
    if (write(descriptor, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
      std::abort();
    close(descriptor);
    setenv("CIM_SANDBOX_MODEL", file, 1);
    InstanceName* names = nullptr;  // the broker reads its model now
    CIMC_EnumInstanceNames(&names, class_name, "", "user", "password", nullptr, name_space);
    unlink(file);
    if (!names) std::abort();
    Free_InstanceName(names);
  }
  ~Local() override { Free_NamedInstance(instances_); }

 protected:
  void enumerate() {
    CIMC_EnumInstances(&instances_, class_name, "", "user", "password", 1, nullptr, name_space);
    if (!instances_) std::abort();
  }
  void drop() { Free_NamedInstance(std::exchange(instances_, nullptr)); }
  const NamedInstance* instances() const { return instances_; }

 private:
  NamedInstance* instances_ = nullptr;
};

class LocalEnumeration : public Local {
 public:
  using Local::Local;
  void run() override {
    enumerate();
    drop();
  }
};

template <class Object>
void release(Object* object) {
  if (object) object->ft->release(object);
}

// What the enumeration calls, with nothing done about what comes back.
class LocalCalls : public Local {
 public:
  using Local::Local;
  void run() override {
    auto* env = static_cast<CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, nullptr, nullptr));
    CIMCClient* client =
        env->ft->connect(env, "localhost", "SfcbLocal", nullptr, "user", "password", nullptr);
    CIMCObjectPath* path = env->ft->newObjectPath(env, name_space, class_name, nullptr);
    CIMCEnumeration* found =
        client->ft->enumInstances(client, path, deep_inheritance, nullptr, nullptr);
    release(path);
    while (found->ft->hasNext(found, nullptr)) take(found->ft->getNext(found, nullptr).value.inst);
    release(found);
    release(client);
    env->ft->release(env);
  }

 private:
  static void take(CIMCInstance* instance) {
    CIMCObjectPath* path = instance->ft->getObjectPath(instance, nullptr);
    for (int i = 0; i < 2; ++i) release(path->ft->getClassName(path, nullptr));
    const unsigned keys = path->ft->getKeyCount(path, nullptr);
    for (unsigned i = 0; i < keys; ++i) {
      CIMCString* name = nullptr;
      path->ft->getKeyAt(path, i, &name, nullptr);
      release(name);
    }
    const CIMCCount properties = instance->ft->getPropertyCount(instance, nullptr);
    for (CIMCCount i = 0; i < properties; ++i) {
      CIMCString* name = nullptr;
      instance->ft->getPropertyAt(instance, i, &name, nullptr);
      release(name);
    }
    release(path);
  }
};

// The allocations, copies and frees of the records that come of it.
class LocalFloor : public Local {
 public:
  explicit LocalFloor(int count) : Local(count) {
    enumerate();
    replay_ = Replay(blocks_of(instances()));
    drop();
  }
  void run() override { replay_.run(); }

 private:
  Replay replay_;
};

}  // namespace

std::unique_ptr<Work> local_work(std::string_view name, int instances) {
  if (name == "local") return std::make_unique<LocalEnumeration>(instances);
  if (name == "local-calls") return std::make_unique<LocalCalls>(instances);
  if (name == "local-floor") return std::make_unique<LocalFloor>(instances);
  return nullptr;
}

}  // namespace bench
