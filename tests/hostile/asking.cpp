// Asking an object manager that means no good, within bounds of time and memory.
#include "hostile/asking.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "cim_client.h"
#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/captured_output.h"
#include "support/footprint.h"

namespace hostile {
namespace {

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
  support::forget_peak();
  limit_ = support::peak() + mebibytes * 1024;
  alarm(support::is_watched() ? 10 * seconds : seconds);
}

Bounds::~Bounds() {
  alarm(0);
  if (!support::is_watched()) {
    EXPECT_LE(support::peak(), limit_);
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
