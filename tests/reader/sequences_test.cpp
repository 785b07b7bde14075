// Documents one after the other: whose the trees are, and that nothing dangles or piles up.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "reader/reading.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/footprint.h"
#include "support/scale.h"

namespace {

using support::living_blocks;

// What a document gives.
enum class Gives { ItsTree, TheTreeBefore, Null };

struct Sample {
  std::string text;
  Gives gives;
};

const std::vector<Sample>& samples() {
  static const std::vector<Sample> all = {
      {reading::answer("<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"k\"/></INSTANCENAME>"),
       Gives::ItsTree},
      // An indication, with records that are not linked.
      {reading::document("<MESSAGE><SIMPLEEXPREQ><EXPMETHODCALL NAME=\"e\"><EXPPARAMVALUE>"
                         "<INSTANCE CLASSNAME=\"A\"/></EXPPARAMVALUE></EXPMETHODCALL>"
                         "<VALUE>x</VALUE></SIMPLEEXPREQ></MESSAGE>"),
       Gives::ItsTree},
      // Without CIM, and with records.
      {"<?xml version=\"1.0\"?><MESSAGE><SIMPLERSP/></MESSAGE>", Gives::TheTreeBefore},
      // With nothing in CIM: the root is never set.
      {"<CIM CIMVERSION=\"2.0\"/>", Gives::TheTreeBefore},
      {"<CIM CIMVERSION=\"2.0\"><MESSAGE><SIMPLERSP>", Gives::Null},
      {"HTTP/1.1 401 Unauthorized\r\n\r\n", Gives::Null},
      // An answer to a method call.
      {reading::document("<MESSAGE><SIMPLERSP><METHODRESPONSE NAME=\"Stop\">"
                         "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE></RETURNVALUE>"
                         "<PARAMVALUE NAME=\"State\" PARAMTYPE=\"uint16\"><VALUE>2</VALUE>"
                         "</PARAMVALUE></METHODRESPONSE></SIMPLERSP></MESSAGE>"),
       Gives::ItsTree},
  };
  return all;
}

class Sequences : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

// Reads the samples in this order.  Whoever keeps trees releases them at the end.
void read_all(const std::vector<std::size_t>& order, bool keep) {
  std::vector<CIM*> kept;
  CIM* before = nullptr;
  for (const std::size_t number : order) {
    const Sample& sample = samples()[number];
    CIM* tree = parseXML(sample.text.c_str());
    switch (sample.gives) {
      case Gives::ItsTree:
        ASSERT_TRUE(tree);
        ASSERT_EQ(std::count(kept.begin(), kept.end(), tree), 0);
        ASSERT_STREQ(tree->cimVersion, "2.0");
        ASSERT_TRUE(tree->message);
        if (keep) {
          kept.push_back(tree);
          before = tree;
        } else {
          Free_CIM(tree);
        }
        break;
      case Gives::TheTreeBefore:
        ASSERT_EQ(tree, before);
        break;
      case Gives::Null:
        ASSERT_FALSE(tree);
        break;
    }
    ASSERT_EQ(returnAddress, before);
  }
  for (CIM* tree : kept) Free_CIM(tree);
  ASSERT_FALSE(returnAddress);
}

std::vector<std::size_t> first_order() {
  std::vector<std::size_t> order(samples().size());
  std::iota(order.begin(), order.end(), 0);
  return order;
}

// Under valgrind and sanitizers, in some of the orders.
void read_in_every_order(bool keep) {
  support::CapturedOutput output(stdout);
  std::vector<std::size_t> order = first_order();
  const int step = 1000 / support::scaled(1000);
  int number = 0;
  do {
    if (number++ % step == 0) read_all(order, keep);
    if (testing::Test::HasFatalFailure()) return;
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Sequences, in_every_order_with_trees_released_at_once) { read_in_every_order(false); }

TEST_F(Sequences, in_every_order_with_trees_kept) { read_in_every_order(true); }

// Whole sequences in a new order each time, whose trees are kept until their ends or released at
// once.
class Documents {
 public:
  void read(int count) {
    const auto each = static_cast<int>(order_.size());
    for (int done = 0; done < count && !testing::Test::HasFatalFailure(); done += each) {
      std::shuffle(order_.begin(), order_.end(), chance_);
      keep_ = !keep_;
      read_all(order_, keep_);
    }
    parseXML("");  // what the last document left without a place
  }

 private:
  std::vector<std::size_t> order_ = first_order();
  std::mt19937 chance_;  // the same orders in each run
  bool keep_ = false;
};

// No block, less than a byte for ten documents on the heap, and a MiB of memory at the peak.
TEST_F(Sequences, nothing_grows_over_100000_documents) {
  constexpr int whole = 100'000;
  const int count = support::scaled(whole);
  support::CapturedOutput output(stdout);
  Documents documents;
  documents.read(1000);
  support::forget_peak();
  const std::size_t peak = support::peak();
  const long blocks = living_blocks();
  const long bytes = support::bytes_in_use();
  documents.read(count);
  EXPECT_EQ(living_blocks(), blocks);
  EXPECT_LT(support::bytes_in_use() - bytes, whole / 10);
  if (count == whole && !support::is_watched()) {
    EXPECT_LE(support::peak(), peak + 1024);
  }
}

TEST_F(Sequences, a_released_tree_is_not_handed_out_again) {
  CIM* tree = parseXML(samples()[0].text.c_str());
  EXPECT_EQ(parseXML(samples()[2].text.c_str()), tree);
  Free_CIM(tree);
  EXPECT_FALSE(parseXML(samples()[2].text.c_str()));
}

TEST_F(Sequences, a_tree_whose_envelope_is_released_is_not_handed_out_again) {
  CIM* tree = parseXML(samples()[0].text.c_str());
  IReturnValue* returned = tree->message->simpleRsp->iMethodResponse->iReturnValue;
  InstanceName* name = returned->instanceName;
  Free_Header(tree);
  EXPECT_FALSE(returnAddress);
  EXPECT_FALSE(parseXML(samples()[2].text.c_str()));
  EXPECT_STREQ(name->className->name, "A");
  Free_InstanceName(name);
}

TEST_F(Sequences, an_older_tree_may_be_released_later) {
  CIM* first = parseXML(samples()[0].text.c_str());
  CIM* second = parseXML(samples()[1].text.c_str());
  Free_CIM(first);
  EXPECT_EQ(returnAddress, second);
  EXPECT_EQ(parseXML(samples()[2].text.c_str()), second);
  Free_CIM(second);
}

TEST_F(Sequences, a_record_without_a_place_lives_until_the_next_document) {
  const reading::Tree tree =
      reading::read(reading::document("<CLASS NAME=\"kept\"><METHOD NAME=\"m\"/></CLASS>"));
  const auto* kept = static_cast<const Class*>(map[1].address);
  const long living = living_blocks();
  EXPECT_STREQ(kept->name, "kept");
  EXPECT_STREQ(kept->methods->name, "m");
  parseXML("no document");
  // CLASS, METHOD, two names, and the reader's list of such records.
  EXPECT_EQ(living_blocks(), living - 5);
}

// What parameters hold is borrowed, but nobody else has seen these.
TEST_F(Sequences, a_request_that_is_replaced_takes_along_what_its_parameters_hold) {
  const std::string request =
      "<MESSAGE><SIMPLEREQ><IMETHODCALL><IPARAMVALUE><CLASSNAME NAME=\"A\"/><VALUE>x</VALUE>"
      "</IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE>";
  const long living = living_blocks();
  CIM* tree = parseXML(reading::document(request + "<MESSAGE/>").c_str());
  EXPECT_FALSE(tree->message->simpleReq);
  Free_CIM(tree);
  EXPECT_EQ(living_blocks(), living);
}

TEST_F(Sequences, a_request_without_a_place_takes_along_what_its_parameters_hold) {
  const long living = living_blocks();
  Free_CIM(parseXML(reading::document("<IMETHODCALL><IPARAMVALUE><CLASSNAME NAME=\"A\"/>"
                                      "<VALUE>x</VALUE></IPARAMVALUE></IMETHODCALL>")
                        .c_str()));
  EXPECT_GT(living_blocks(), living);
  parseXML("");
  EXPECT_EQ(living_blocks(), living);
}

}  // namespace
