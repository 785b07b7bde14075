// What may run at once: exchanges, writers and lists of different records, copies, handles,
// headers and base64.  Built with CIM_CLIENT_SANITIZE=thread, races end it.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "cim_client.h"
#include "operations/object_manager.h"
#include "support/filled_records.h"
#include "support/scale.h"
#include "support/scripted_server.h"

namespace {

constexpr int threads = 4;

// Runs `work(thread)` in all threads at once, `count` times each.  Returns how many were right.
int run_at_once(int count, const std::function<bool(int)>& work) {
  std::atomic<int> ready = 0;
  std::atomic<int> right = 0;
  std::vector<std::thread> workers;
  workers.reserve(threads);
  for (int number = 0; number < threads; ++number)
    workers.emplace_back([&, number] {
      ++ready;
      while (ready < threads) std::this_thread::yield();
      for (int i = 0; i < count; ++i)
        if (work(number)) ++right;
    });
  for (std::thread& worker : workers) worker.join();
  return right;
}

// Runs it so that all results must be right.
void expect_right_at_once(int count, const std::function<bool(int)>& work) {
  EXPECT_EQ(run_at_once(count, work), threads * count);
}

// The text of a record that is released then.
template <class R>
std::string written(R* record, int (*write)(R*, char**), int (*release)(R*)) {
  char* text = nullptr;
  write(record, &text);
  std::string result = text ? text : "";
  std::free(text);
  release(record);
  return result;
}

TEST(AtOnce, exchanges_with_one_object_manager_each) {
  std::vector<std::unique_ptr<support::ScriptedServer>> servers;
  servers.reserve(threads);
  for (int number = 0; number < threads; ++number)
    servers.push_back(
        std::make_unique<support::ScriptedServer>(support::answer(operations_test::http_answer(
            "<?xml version=\"1.0\"?><A" + std::to_string(number) + "/>"))));
  expect_right_at_once(support::scaled(200), [&](int number) {
    char* body = nullptr;
    const auto place = static_cast<std::size_t>(number);
    const int result = CIMSendRequest("<?xml?>", &body, "127.0.0.1", servers[place]->port(), "user",
                                      "password", 100);
    const std::string text = body ? body : "";
    std::free(body);
    return result == 0 && text == "<?xml version=\"1.0\"?><A" + std::to_string(number) + "/>";
  });
}

TEST(AtOnce, handles) {
  expect_right_at_once(support::scaled(1000), [](int number) {
    const std::string name = "user" + std::to_string(number);
    auto* handle = client_Configuration("10.0.0.1", 5988, "root", 0, name.c_str(), "secret");
    std::array<char, 20> user{}, space{};
    CIMC_SetNamespace(handle, name.c_str());
    CIMC_GetUserNameFromHandle(handle, user.data(), user.size());
    CIMC_GetNamespace(handle, space.data(), space.size());
    return Free_client_Configuration(handle) == 0 && name == user.data() && name == space.data();
  });
}

TEST(AtOnce, writers_copies_and_releases_of_different_trees) {
  const std::string expected = written(support::filled<CIM>("0", 4), Gen_CIM, Free_CIM);
  expect_right_at_once(support::scaled(20), [&](int number) {
    const std::string own = std::to_string(number);
    std::string text = written(support::filled<CIM>(own.c_str(), 4), Gen_CIM, Free_CIM);
    return text.size() == expected.size() && (number != 0 || text == expected);
  });
  expect_right_at_once(support::scaled(1000), [](int number) {
    const std::string own = std::to_string(number);
    auto* record = support::filled<NamedInstance>(own.c_str(), 3);
    NamedInstance* copy = nullptr;
    const bool is_copied = Clone_NamedInstance(record, &copy) == 0;
    Free_NamedInstance(record);
    return is_copied && !written(copy, Gen_NamedInstance, Free_NamedInstance).empty();
  });
}

// What is copied may be read by all.
TEST(AtOnce, writers_and_copies_of_one_tree) {
  auto* shared = support::filled<InstancePath>("t", 4);
  char* expected = nullptr;
  Gen_InstancePath(shared, &expected);
  expect_right_at_once(support::scaled(1000), [&](int) {
    InstancePath* copy = nullptr;
    Clone_InstancePath(shared, &copy);
    return written(copy, Gen_InstancePath, Free_InstancePath) == expected;
  });
  std::free(expected);
  Free_InstancePath(shared);
}

TEST(AtOnce, lists) {
  expect_right_at_once(support::scaled(1000), [](int number) {
    Property* list = nullptr;
    const std::string name = "P" + std::to_string(number);
    for (int i = 0; i < 3; ++i) {
      std::array<char, 6> value{"false"};
      AddToProeprtyList(&list, name.c_str(), value.data(), "boolean");
    }
    const bool is_right = list && list->next && name == list->next->name;
    Free_Property(list);
    return is_right;
  });
}

TEST(AtOnce, headers_and_base64) {
  expect_right_at_once(support::scaled(1000), [](int number) {
    const std::string user = "user" + std::to_string(number);
    std::array<char, 512> head{};
    std::array<char, 64> encoded{}, decoded{};
    CIMC_CreateStdHttpHeaders("h", 5, head.data(), head.size(), user.c_str(), "password");
    Encode64(encoded.data(), (user + ":password").c_str(), encoded.size());
    const bool is_right = std::string(head.data()).find(encoded.data()) != std::string::npos;
    return is_right && Decode64(decoded.data(), encoded.data(), decoded.size()) == 0 &&
           user + ":password" == decoded.data();
  });
}

// One thread reads documents, as the header asks; the others do what may run beside it.
TEST(AtOnce, reading_in_one_thread_and_the_rest_in_others) {
  const std::string document =
      operations_test::operation_answer("X", "<IRETURNVALUE><CLASS NAME=\"C\"/></IRETURNVALUE>");
  expect_right_at_once(support::scaled(1000), [&](int number) {
    if (number == 0) {
      CIM* tree = parseXML(document.c_str());
      const bool is_right = tree && tree->message;
      Free_CIM(tree);
      return is_right;
    }
    ClassName* name = CIMC_CreateClassName("CIM_Fan");
    return written(name, Gen_ClassName, Free_ClassName) == "\"CIM_Fan\"";
  });
}

}  // namespace
