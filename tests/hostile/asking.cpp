// Asking an object manager that means no good, within bounds of time and memory.
#include "hostile/asking.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>

#include "cim_client.h"
#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/captured_output.h"

// An emulator's own memory is part of the process's, as a sanitizer's is.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(CIM_CLIENT_EMULATED)
#define IS_WATCHED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define IS_WATCHED 1
#endif
#endif
#ifndef IS_WATCHED
#define IS_WATCHED 0
#endif

namespace hostile {
namespace {

// KiB of the process at its peak since the last start_anew().
std::size_t peak() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stoul(line.substr(6));
  ADD_FAILURE() << "the peak of the memory cannot be read";
  return 0;
}

void start_anew() { std::ofstream("/proc/self/clear_refs") << 5; }

std::string tell(const NamedInstance* list) {
  if (!list) return "null";
  std::size_t count = 0;
  for (const auto* node = list; node; node = node->next) ++count;
  std::string text = std::to_string(count) + (count == 1 ? " instance" : " instances");
  const Property* property = list->instance ? list->instance->properties : nullptr;
  if (property && property->value && property->value->text)
    text += ", " + std::to_string(std::strlen(property->value->text)) + " bytes";
  return text;
}

}  // namespace

Bounds::Bounds(unsigned seconds, std::size_t mebibytes) {
  start_anew();
  limit_ = peak() + mebibytes * 1024;
  alarm(IS_WATCHED ? 10 * seconds : seconds);
}

Bounds::~Bounds() {
  alarm(0);
  if (!IS_WATCHED) {
    EXPECT_LE(peak(), limit_);
  }
}

std::string ask(const support::ServerScript& script) {
  operations_test::ObjectManager object_manager(script);
  static const auto name = operations_test::class_name("CIM_Fan");
  const support::CapturedOutput output(stdout), errors(stderr);
  Error* error = nullptr;
  const operations_test::OwnedNamedInstance list(
      EnumerateInstances(object_manager.handle(), name.get(), 0, 1, 0, 0, nullptr, &error));
  const operations_test::OwnedError owned_error(error);
  std::string text = tell(list.get());
  if (error) text += ", error " + operations_test::text_of(error);
  return text;
}

std::string ask(const std::string& http) {
  return ask(support::ServerScript().read_request().send(http).close());
}

std::string document(const std::string& content) {
  return operations_test::operation_answer("EnumerateInstances",
                                           "<IRETURNVALUE>\n" + content + "</IRETURNVALUE>\n");
}

std::string instance_with(const std::string& value) {
  return "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"A\"/><INSTANCE CLASSNAME=\"A\">"
         "<PROPERTY NAME=\"P\" TYPE=\"string\"><VALUE>" +
         value + "</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE>\n";
}

std::string instances(int count) {
  std::string text;
  for (; count > 0; --count) text += "<VALUE.NAMEDINSTANCE/>";
  return text;
}

std::string head(const std::string& length) {
  return "HTTP/1.1 200 OK\r\nContent-Type: application/xml\r\nContent-Length: " + length +
         "\r\n\r\n";
}

std::string answer(const std::string& body) { return head(std::to_string(body.size())) + body; }

}  // namespace hostile
