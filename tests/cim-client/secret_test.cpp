// The text that must not stay behind.
#include "secret.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>

namespace {

// The array to look at when it is released, the latest one of the size of `released` since
// `watching` began, and what it held then.
bool watching = false;
const void* watched = nullptr;
std::string released;

void release(void* memory) noexcept {
  if (memory != nullptr && memory == watched) {
    std::copy_n(static_cast<const char*>(memory), released.size(), released.begin());
    watched = nullptr;
  }
  std::free(memory);
}

}  // namespace

// Arrays of this program come and go here, so that the test sees the end of a secret's memory.
void* operator new[](std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  if (watching && size == released.size()) watched = memory;
  return memory;
}
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }

namespace cli {
namespace {

TEST(Secret, holds_a_terminated_text) {
  Secret secret(std::string_view("geheim"));
  EXPECT_STREQ(secret.text(), "geheim");
  EXPECT_EQ(secret.length(), 6U);
  secret.drop_last();
  EXPECT_STREQ(secret.text(), "gehei");
  EXPECT_TRUE(secret.append('M'));
  EXPECT_STREQ(secret.text(), "geheiM");
}

TEST(Secret, begins_empty) {
  Secret secret;
  EXPECT_STREQ(secret.text(), "");
  secret.drop_last();
  EXPECT_EQ(secret.length(), 0U);
}

TEST(Secret, takes_no_more_than_its_limit) {
  Secret secret{std::string(Secret::limit + 10, 'x')};
  EXPECT_EQ(secret.length(), Secret::limit);
  EXPECT_FALSE(secret.append('y'));
  EXPECT_EQ(std::string(secret.text()), std::string(Secret::limit, 'x'));
}

TEST(Secret, moves_without_leaving_a_copy) {
  Secret source(std::string_view("geheim"));
  const char* place = source.text();
  const Secret moved(std::move(source));
  EXPECT_EQ(moved.text(), place) << "the same memory, not another that holds it, too";
}

TEST(Secret, its_memory_is_overwritten_before_it_is_released) {
  released.assign(Secret::limit + 1, '?');
  watching = true;
  {
    const Secret secret(std::string_view("geheim"));
    EXPECT_EQ(secret.text(), watched);
  }
  watching = false;
  EXPECT_EQ(watched, nullptr) << "the memory was released";
  EXPECT_EQ(released, std::string(Secret::limit + 1, '\0'));
}

}  // namespace
}  // namespace cli
