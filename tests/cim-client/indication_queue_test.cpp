// The bounded queue of indications.
#include "indication_queue.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <thread>

#include "records.h"

namespace cli {
namespace {

Indication named(const char* text) { return {InstanceOwner(new_record<Instance>()), text}; }

bool is_readable(const IndicationQueue& queue) {
  pollfd entry = {queue.descriptor(), POLLIN, 0};
  return poll(&entry, 1, 0) == 1;
}

TEST(IndicationQueue, what_comes_first_goes_first) {
  IndicationQueue queue(4);
  queue.push(named("1"));
  queue.push(named("2"));
  EXPECT_EQ(queue.pop()->document, "1");
  EXPECT_EQ(queue.pop()->document, "2");
  EXPECT_FALSE(queue.pop());
}

TEST(IndicationQueue, takes_no_more_than_its_capacity) {
  IndicationQueue queue(2);
  EXPECT_TRUE(queue.push(named("1")));
  EXPECT_TRUE(queue.push(named("2")));
  EXPECT_FALSE(queue.push(named("3")));
  EXPECT_EQ(queue.pop()->document, "1");
  EXPECT_TRUE(queue.push(named("4")));
}

TEST(IndicationQueue, its_descriptor_is_readable_while_something_is_there) {
  IndicationQueue queue(2);
  EXPECT_FALSE(is_readable(queue));
  queue.push(named("1"));
  queue.push(named("2"));
  EXPECT_TRUE(is_readable(queue));
  queue.pop();
  EXPECT_TRUE(is_readable(queue));
  queue.pop();
  EXPECT_FALSE(is_readable(queue));
}

TEST(IndicationQueue, two_threads_lose_nothing) {
  constexpr int count = 10'000;
  IndicationQueue queue(16);
  std::thread writer([&queue] {
    for (int number = 0; number < count; ++number) {
      while (!queue.push(named("x"))) std::this_thread::yield();
    }
  });
  int taken = 0;
  while (taken < count) {
    pollfd entry = {queue.descriptor(), POLLIN, 0};
    poll(&entry, 1, 1000);
    if (queue.pop()) ++taken;
  }
  writer.join();
  EXPECT_FALSE(queue.pop());
}

}  // namespace
}  // namespace cli
