// Extrinsic methods and the behavior that their qualifiers describe.
#include "support/managed_objects.h"

namespace sandbox {
namespace {

using test::code_of;
using test::description_of;

class Methods : public test::ManagedObjects {
 protected:
  Methods()
      : ManagedObjects(
            "class Box { string Label; };\n"
            "class Fan { [Key] string Id; boolean Active = false; uint64 Speed; uint16 States[];\n"
            "  [EmbeddedInstance(\"Box\")] string Inside; Fan REF Twin;\n"
            "  [SandboxRefuses{\"Active=TRUE:2\"}, SandboxSets{\"Active=true\", \"States=2\"}]\n"
            "  uint32 Start();\n"
            "  [SandboxGives{\"Old=Speed\"}, SandboxSets{\"Speed = $New\"}]\n"
            "  uint8 SetSpeed([Required] uint64 New, [In(false), Out] uint64 Old);\n"
            "  [SandboxSets{\"Inside=$B\"}] boolean Keep([EmbeddedInstance(\"Box\")] string B);\n"
            "  [SandboxEchoes] uint32 Echo([In, Out] uint8 A[], string B, [In, Out] Fan REF C);\n"
            "  [SandboxFails(2)] uint32 Fail();\n  uint32 Nothing();\n"
            "  [Static, SandboxReturns(\"hello\")] string Greet();\n"
            "  [SandboxSets{\"Speed=fast\"}] uint32 WrongValue();\n"
            "  [SandboxSets{\"Speed\"}] uint32 WrongRule();\n"
            "  [SandboxSets{\"Weight=1\"}] uint32 WrongProperty();\n"
            "  [SandboxSets{\"Id=x\"}] uint32 WrongKey();\n"
            "  [SandboxGives{\"X=Speed\"}] uint32 WrongParameter();\n"
            "  [Static, SandboxSets{\"Speed=1\"}] uint32 WrongStatic(); };\n"
            "instance of Fan { Id = \"f\"; Speed = 100; };") {}

  Outcome<MethodResult> invoke(const char* method, const std::vector<GivenValue>& arguments = {},
                               const char* object = "Fan.Id=\"f\"") {
    return manager_.invoke_method(path(object), method, arguments);
  }

  // The return value and the out parameters as text, or the error.
  static std::string shown(const Outcome<MethodResult>& result) {
    if (!result) return code_of(result) + ' ' + description_of(result);
    std::string text = result->return_value.null()
                           ? "nothing"
                           : to_text(result->return_value.scalar(), result->method->type.type);
    for (const OutArgument& out : result->out) {
      text += ' ' + out.parameter->name + '=';
      const Type type = out.parameter->type.type;
      if (!out.value.is_array()) {
        text += to_text(out.value.scalar(), type);
        continue;
      }
      for (const Scalar& element : out.value.elements()) text += '[' + to_text(element, type) + ']';
    }
    return text;
  }
};

TEST_F(Methods, a_method_sets_properties_unless_it_refuses) {
  EXPECT_EQ(shown(invoke("start")), "0");
  EXPECT_EQ(value("Fan.Id=\"f\"", "Active"), "TRUE");
  EXPECT_EQ(value("Fan.Id=\"f\"", "States"), "[2]");
  EXPECT_EQ(shown(invoke("Start")), "2");
}

TEST_F(Methods, a_method_gives_what_was_before_and_sets_an_argument) {
  EXPECT_EQ(shown(invoke("SetSpeed", {given("new", "500")})), "0 Old=100");
  EXPECT_EQ(value("Fan.Id=\"f\"", "Speed"), "500");
}

TEST_F(Methods, a_method_keeps_an_embedded_instance) {
  const auto box = manager_.build_instance("root/cimv2", {"Box", {given("Label", "x")}});
  const Value value(Scalar(std::make_shared<const Instance>(*box)));
  EXPECT_EQ(shown(invoke("Keep", {{"B", std::nullopt, std::nullopt, value}})), "nothing");
  const auto fan = manager_.get_instance(path("Fan.Id=\"f\""));
  const auto& kept = std::get<EmbeddedInstance>((*fan)->find("Inside")->scalar());
  EXPECT_EQ(std::get<std::string>(kept->find("Label")->scalar()), "x");
}

TEST_F(Methods, an_echo_gives_back_what_goes_in_and_out) {
  const Value numbers(std::vector<Scalar>{Scalar(std::string("1")), Scalar(std::string("2"))});
  EXPECT_EQ(shown(invoke("Echo", {{"A", Type::UInt8, true, numbers},
                                  given("B", "text"),
                                  given("C", "Fan.Id=\"f\"")})),
            "0 A=[1][2] C=root/cimv2:Fan.Id=\"f\"");
}

TEST_F(Methods, a_static_method_needs_no_instance) {
  EXPECT_EQ(shown(invoke("Greet", {}, "Fan")), "hello");
  EXPECT_EQ(shown(invoke("Greet")), "hello");
  EXPECT_EQ(shown(invoke("Start", {}, "Fan")), "4 method \"Start\" needs an instance");
}

TEST_F(Methods, mistakes_have_their_errors) {
  EXPECT_EQ(shown(invoke("Fail")), "2 method \"Fail\" fails on purpose");
  EXPECT_EQ(shown(invoke("Nothing")), "16 the model gives method \"Nothing\" no behavior");
  EXPECT_EQ(shown(invoke("Fly")), "17 class \"Fan\" has no method \"Fly\"");
  EXPECT_EQ(shown(invoke("Start", {}, "Missing.Id=1")), "5 unknown class \"Missing\"");
  EXPECT_EQ(shown(invoke("Start", {}, "Fan.Id=\"g\"")),
            "6 there is no instance root/cimv2:Fan.Id=\"g\"");
  EXPECT_EQ(shown(invoke("Start", {}, "root/x:Fan.Id=\"f\"")), "3 unknown namespace \"root/x\"");
  EXPECT_EQ(shown(invoke("SetSpeed")), "4 required parameter \"New\" is missing");
  EXPECT_EQ(shown(invoke("SetSpeed", {given("New", "fast")})),
            "13 parameter \"New\": \"fast\" is no uint64");
  EXPECT_EQ(shown(invoke("SetSpeed", {given("New", "1"), given("Old", "1")})),
            "4 method \"SetSpeed\" takes no parameter \"Old\"");
  EXPECT_EQ(shown(invoke("SetSpeed", {given("New", "1"), given("Newer", "1")})),
            "4 method \"SetSpeed\" takes no parameter \"Newer\"");
  EXPECT_EQ(shown(invoke("SetSpeed", {given("New", "1"), given("new", "1")})),
            "4 parameter \"new\" is given twice");
  EXPECT_EQ(value("Fan.Id=\"f\"", "Speed"), "100");
}

TEST_F(Methods, mistakes_of_the_model_are_named) {
  const std::string wrong = "1 the model of method \"";
  EXPECT_EQ(shown(invoke("WrongValue")), wrong + "WrongValue\" is wrong: \"fast\" is no uint64");
  EXPECT_EQ(
      shown(invoke("WrongRule")),
      wrong + "WrongRule\" is wrong: SandboxSets needs Property=value or Property=$Parameter");
  EXPECT_EQ(shown(invoke("WrongProperty")),
            wrong + "WrongProperty\" is wrong: there is no property \"Weight\"");
  EXPECT_EQ(shown(invoke("WrongKey")), wrong + "WrongKey\" is wrong: keys cannot be set");
  EXPECT_EQ(shown(invoke("WrongParameter")),
            wrong + "WrongParameter\" is wrong: there is no parameter \"X\"");
  EXPECT_EQ(shown(invoke("WrongStatic", {}, "Fan")),
            wrong + "WrongStatic\" is wrong: there is no property \"Speed\"");
}

}  // namespace
}  // namespace sandbox
