// The bytes of qualifiers and qualifier declarations, and of attributes that stand alone.
#include <gtest/gtest.h>

#include "cim_client.h"
#include "support/written.h"

namespace {

using support::text;
using support::written;

// ---- Attributes ----

TEST(WriteClassOrigin, is_an_attribute_with_its_blank) {
  EXPECT_EQ(written(Gen_ClassOrigin, text("CIM_Fan")), " CLASSORIGIN=\"CIM_Fan\"");
}

TEST(WriteReferenceClass, is_an_attribute_with_its_blank) {
  EXPECT_EQ(written(Gen_ReferenceClass, text("CIM_Fan")), " REFERENCECLASS=\"CIM_Fan\"");
}

TEST(WriteFlavor, lacks_the_equals_sign_after_its_name_and_uses_single_quotes) {
  QualifierFlavor flavor{.overridable = 1, .toSubclass = 1, .toInstance = 1, .translatable = 1};
  EXPECT_EQ(written(Gen_QualifierFlavor, &flavor),
            " QUALIFIERFLAVOR'TRUE' OVERRIDABLE='TRUE' TOSUBCLASS='TRUE' TOINSTANCE='TRUE'"
            " TRANSLATABLE='TRUE'");
}

TEST(WriteFlavor, of_zeros_is_false_throughout) {
  QualifierFlavor flavor{};
  EXPECT_EQ(written(Gen_QualifierFlavor, &flavor),
            " QUALIFIERFLAVOR'TRUE' OVERRIDABLE='FALSE' TOSUBCLASS='FALSE' TOINSTANCE='FALSE'"
            " TRANSLATABLE='FALSE'");
}

TEST(WriteFlavor, leaves_out_a_flag_that_is_neither_0_nor_1) {
  QualifierFlavor flavor{.overridable = 1, .toSubclass = 0, .toInstance = 2, .translatable = 0};
  EXPECT_EQ(written(Gen_QualifierFlavor, &flavor),
            " QUALIFIERFLAVOR'TRUE' OVERRIDABLE='TRUE' TOSUBCLASS='FALSE' TRANSLATABLE='FALSE'");
}

TEST(WriteFlavor, of_no_known_flag_keeps_its_name) {
  QualifierFlavor flavor{
      .overridable = -1, .toSubclass = 2, .toInstance = 256, .translatable = 32767};
  EXPECT_EQ(written(Gen_QualifierFlavor, &flavor), " QUALIFIERFLAVOR'TRUE'");
}

TEST(WriteScope, has_blanks_where_equals_signs_belong) {
  Scope scope{.class_ = 1, .property = 1};
  EXPECT_EQ(written(Gen_Scope, &scope), "<SCOPE CLASS \"TRUE\" PROPERTY \"TRUE\"/>");
}

TEST(WriteScope, all_seven_in_their_order) {
  Scope scope{.class_ = 1,
              .association = 1,
              .reference = 1,
              .property = 1,
              .method = 1,
              .parameter = 1,
              .indication = 1};
  EXPECT_EQ(written(Gen_Scope, &scope),
            "<SCOPE CLASS \"TRUE\" ASSOCIATION \"TRUE\" REFERENCE \"TRUE\" PROPERTY \"TRUE\""
            " METHOD \"TRUE\" PARAMETER \"TRUE\" INDICATION \"TRUE\"/>");
}

TEST(WriteScope, writes_nothing_for_any_value_but_1) {
  Scope scope{.class_ = 0, .association = 2, .reference = -1};
  EXPECT_EQ(written(Gen_Scope, &scope), "<SCOPE/>");
}

// ---- Qualifiers ----

TEST(WriteQualifier, propagated_is_unquoted_and_the_flavor_stands_behind_the_value) {
  Value value{.text = text("true")};
  QualifierFlavor flavor{.overridable = 1};
  Qualifier qualifier{.value = &value,
                      .name = text("Key"),
                      .type = text("boolean"),
                      .propagated = 1,
                      .qualifierFlavor = &flavor};
  EXPECT_EQ(written(Gen_Qualifier, &qualifier),
            "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" PROPAGATED=TRUE><VALUE>true</VALUE>"
            " QUALIFIERFLAVOR'TRUE' OVERRIDABLE='TRUE' TOSUBCLASS='FALSE' TOINSTANCE='FALSE'"
            " TRANSLATABLE='FALSE'</QUALIFIER>");
}

TEST(WriteQualifier, value_comes_before_array) {
  Value value{.text = text("a")};
  ValueArray array{};
  Qualifier qualifier{.value = &value, .valueArray = &array, .name = text("q")};
  EXPECT_EQ(written(Gen_Qualifier, &qualifier),
            "<QUALIFIER NAME=\"q\"><VALUE>a</VALUE><VALUE.ARRAY></VALUE.ARRAY></QUALIFIER>");
}

TEST(WriteQualifier, propagated_shows_only_when_1) {
  for (std::int16_t flag : {std::int16_t{0}, std::int16_t{2}, std::int16_t{-1}}) {
    Qualifier qualifier{.name = text("q"), .propagated = flag};
    EXPECT_EQ(written(Gen_Qualifier, &qualifier), "<QUALIFIER NAME=\"q\"></QUALIFIER>") << flag;
  }
}

TEST(WriteQualifier, two_qualifiers) {
  Qualifier second{.name = text("b")};
  Qualifier first{.name = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_Qualifier, &first),
            "<QUALIFIER NAME=\"a\"></QUALIFIER><QUALIFIER NAME=\"b\"></QUALIFIER>");
}

TEST(WriteQualifier, without_a_name_has_nothing_after_the_equals_sign) {
  Qualifier qualifier{};
  EXPECT_EQ(written(Gen_Qualifier, &qualifier), "<QUALIFIER NAME=></QUALIFIER>");
}

TEST(WriteQualifierDecl, type_is_opened_and_then_written_whole) {
  QualifierDecl declaration{.name = text("Key"), .type = text("boolean"), .isArray = 2};
  EXPECT_EQ(written(Gen_QualifierDecl, &declaration),
            "<QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\" TYPE=\"boolean\">"
            "</QUALIFIER.DECLARATION>");
}

TEST(WriteQualifierDecl, flavor_stands_in_an_attribute_of_its_own) {
  QualifierFlavor flavor{.toSubclass = 1};
  QualifierDecl declaration{.name = text("Key"), .isArray = 2, .qualifierFlavor = &flavor};
  EXPECT_EQ(written(Gen_QualifierDecl, &declaration),
            "<QUALIFIER.DECLARATION NAME=\"Key\" QUALIFIERFLAVOR=\" QUALIFIERFLAVOR'TRUE'"
            " OVERRIDABLE='FALSE' TOSUBCLASS='TRUE' TOINSTANCE='FALSE' TRANSLATABLE='FALSE'\">"
            "</QUALIFIER.DECLARATION>");
}

TEST(WriteQualifierDecl, whole_without_its_array_size) {
  Scope scope{.property = 1};
  Value value{.text = text("FALSE")};
  ValueArray array{};
  QualifierFlavor flavor{};
  QualifierDecl declaration{.scope = &scope,
                            .value = &value,
                            .valueArray = &array,
                            .name = text("Key"),
                            .type = text("boolean"),
                            .isArray = 1,
                            .arraySize = 5,
                            .qualifierFlavor = &flavor};
  EXPECT_EQ(written(Gen_QualifierDecl, &declaration),
            "<QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\" TYPE=\"boolean\" ISARRAY=\"TRUE\""
            " QUALIFIERFLAVOR=\" QUALIFIERFLAVOR'TRUE' OVERRIDABLE='FALSE' TOSUBCLASS='FALSE'"
            " TOINSTANCE='FALSE' TRANSLATABLE='FALSE'\"><SCOPE PROPERTY \"TRUE\"/>"
            "<VALUE>FALSE</VALUE><VALUE.ARRAY></VALUE.ARRAY></QUALIFIER.DECLARATION>");
}

TEST(WriteQualifierDecl, is_array_shows_0_as_false_and_2_not_at_all) {
  QualifierDecl second{.name = text("b"), .isArray = 2};
  QualifierDecl first{.name = text("a"), .isArray = 0, .next = &second};
  EXPECT_EQ(written(Gen_QualifierDecl, &first),
            "<QUALIFIER.DECLARATION NAME=\"a\" ISARRAY=\"FALSE\"></QUALIFIER.DECLARATION>"
            "<QUALIFIER.DECLARATION NAME=\"b\"></QUALIFIER.DECLARATION>");
}

TEST(WriteQualifierDecl, without_a_name_has_nothing_after_the_equals_sign) {
  QualifierDecl declaration{};
  EXPECT_EQ(written(Gen_QualifierDecl, &declaration),
            "<QUALIFIER.DECLARATION NAME= ISARRAY=\"FALSE\"></QUALIFIER.DECLARATION>");
}

}  // namespace
