// What the C++ header offers, used by a program of its own: it is compiled by several compilers
// and with several options, and ends with the number of the first line that went wrong.
#include "cim_client.hpp"

#define EXPECT(condition)                    \
  do {                                       \
    if (!(condition)) return __LINE__ % 256; \
  } while (false)

template class cim_client::BasicClient<cim_client::NoLock>;
template class cim_client::BasicClient<cim_client::ReaderLock>;
template class cim_client::Result<Class>;
template class cim_client::Result<InstanceName>;

int main() {
  using namespace cim_client;  // NOLINT(google-build-using-namespace): as programs do
  // Nobody listens on port 1: every operation comes back with nothing.
  const SharedClient client("127.0.0.1", 1, "root/cimv2", "user", "password");
  EXPECT(client);
  EXPECT(client.get_class("CIM_Fan").outcome() == Outcome::Nothing);

  Owner<Property> properties;
  EXPECT(add_property(properties, "Speed", std::uint64_t{2000}));
  EXPECT(add_property(properties, "Limit", 0.5));
  EXPECT(add_property(properties, "Grade", u'A'));
  EXPECT(add_property(properties, "Since", DateTime{"20240131235959.000000+060"}));
  EXPECT(add_property(properties, "Note", client.outgoing("a & b")));
  const Owner<Instance> instance = make_instance("CIM_Fan", std::move(properties));
  EXPECT(instance);
  EXPECT(get<std::uint64_t>(*instance, "Speed") == std::uint64_t{2000});
  EXPECT(!get<std::uint8_t>(*instance, "Speed"));
  EXPECT(get<double>(*instance, "Limit") == 0.5);
  EXPECT(get<char16_t>(*instance, "Grade") == u'A');
  EXPECT(get<std::string>(*instance, "Note") == "a &amp; b");
  EXPECT(get<DateTime>(*instance, "Since")->text == "20240131235959.000000+060");

  EXPECT(to_text(1e20) == "1.0e+20");
  EXPECT(from_text<double>(to_text(0.1)) == 0.1);
  EXPECT(from_text<float>("-1.5e3") == -1500.0F);
  EXPECT(!from_text<double>("1e999"));
  EXPECT(!from_text<double>("0x10"));
  EXPECT(!from_text<double>("1.5x"));
  EXPECT(to_text(*from_text<double>("-inf")) == "-INF");

  std::size_t count = 0;
  for (const Property& property : nodes(instance->properties)) count += property.value ? 1 : 0;
  EXPECT(count == 5);
  EXPECT(!parse<ReaderLock>("no document"));
  return 0;
}
