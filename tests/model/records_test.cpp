// The descriptions of the records: that there is one for each, and where they depart from the
// rule that a record owns and copies what it points to.
#include "model/records.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>

#include "support/every_record.h"

namespace {

TEST(Records, there_is_one_description_for_each_record) {
  std::size_t records = 0;
#define COUNT(name) ++records;
  FOR_EVERY_RECORD(COUNT)
  EXPECT_EQ(cim::Records::size, records);
#define IS_DESCRIBED(name) EXPECT_TRUE(cim::Record<name>) << #name;
  FOR_EVERY_RECORD(IS_DESCRIBED)
}

struct CollectElements {
  std::set<std::string>& names;

  template <class R>
  void operator()() const {
    names.insert(cim::describe<R>.element);
  }
};

TEST(Records, every_element_has_a_name_of_its_own) {
  std::set<std::string> names;
  cim::Records::for_each(CollectElements{names});
  EXPECT_EQ(names.size(), cim::Records::size);
}

// Collects "RECORD.ATTRIBUTE", or "RECORD" for a field without attribute, for every field that
// `departs`.
template <class Departs>
struct CollectDepartures {
  Departs departs;
  std::multiset<std::string>& found;

  template <class R>
  void operator()() const {
    cim::for_each_field<R>([&](const auto& field) {
      if (!departs(field)) return;
      const std::string element = cim::describe<R>.element;
      found.insert(field.attribute ? element + '.' + field.attribute : element);
    });
  }
};

template <class Departs>
std::multiset<std::string> departures(Departs departs) {
  std::multiset<std::string> found;
  cim::Records::for_each(CollectDepartures<Departs>{departs, found});
  return found;
}

using Names = std::multiset<std::string>;

TEST(Records, own_all_they_point_to_but_for_the_parameters_of_an_operation) {
  const auto borrowed = [](const auto& field) { return field.owner == cim::Owner::Caller; };
  const std::string element = "IPARAMVALUE";
  EXPECT_EQ(departures(borrowed), (Names{element, element, element, element, element, element,
                                         element, element, element}));
}

TEST(Records, copy_the_first_character_of_class_origins_and_reference_classes_alone) {
  const auto cut = [](const auto& field) { return field.copy == cim::Copy::FirstCharacter; };
  EXPECT_EQ(departures(cut),
            (Names{"METHOD.CLASSORIGIN", "PARAMETER.REFARRAY.REFERENCECLASS",
                   "PARAMETER.REFERENCE.REFERENCECLASS", "PROPERTY.ARRAY.CLASSORIGIN",
                   "PROPERTY.CLASSORIGIN", "PROPERTY.REFERENCE.CLASSORIGIN",
                   "PROPERTY.REFERENCE.REFERENCECLASS", "TABLECELLREFERENCE.REFERENCECLASS"}));
}

TEST(Records, leave_out_of_copies_the_name_of_a_reference_property_alone) {
  const auto left_out = [](const auto& field) { return field.copy == cim::Copy::Nothing; };
  EXPECT_EQ(departures(left_out), Names{"PROPERTY.REFERENCE.NAME"});
}

}  // namespace
