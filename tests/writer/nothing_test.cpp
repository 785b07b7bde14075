// What every Gen_ function does with nothing to write, or nowhere to write to.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "cim_client.h"

namespace {

template <class R>
void expect_untouched(int (*generate)(R*, char**), const char* name) {
  char* output = nullptr;
  EXPECT_EQ(generate(nullptr, &output), 0) << name;
  EXPECT_EQ(output, nullptr) << name;

  char* const given = strdup("as it was");
  output = given;
  EXPECT_EQ(generate(nullptr, &output), 0) << name;
  EXPECT_EQ(output, given) << name;
  EXPECT_STREQ(output, "as it was") << name;
  std::free(given);

  EXPECT_EQ(generate(nullptr, nullptr), 0) << name;
}

template <class R>
void expect_harmless(int (*generate)(R*, char**), const char* name) {
  R record{};
  EXPECT_EQ(generate(&record, nullptr), 0) << name;
}

// clang-format off
#define FOR_EVERY_GENERATOR(DO)                                                                 \
  DO(CIMName) DO(CIMType) DO(ClassName) DO(Namespace) DO(LocalNamespacePath)                    \
  DO(NamespacePath) DO(LocalClassPath) DO(ClassPath) DO(InstancePath) DO(LocalInstancePath)     \
  DO(KeyValue) DO(KeyBinding) DO(InstanceName) DO(ValueReference) DO(ValueRefArray)             \
  DO(ValueArray) DO(ValueNull) DO(Value)                                                        \
  DO(ClassOrigin) DO(ReferenceClass) DO(QualifierFlavor) DO(Scope) DO(Qualifier)                \
  DO(QualifierDecl) DO(Property) DO(PropertyArray) DO(PropertyReference) DO(Parameter)          \
  DO(ParameterReference) DO(ParameterArray) DO(ParameterRefArray) DO(Method) DO(Class)          \
  DO(Instance) DO(NamedInstance) DO(ResponseDestination)                                        \
  DO(CIM) DO(Message) DO(SimpleReq) DO(MultiReq) DO(SimpleRsp) DO(MultiRsp) DO(IMethodCall)     \
  DO(IParamValue) DO(IMethodResponse) DO(IReturnValue) DO(MethodCall) DO(ParamValue)            \
  DO(MethodResponse) DO(ReturnValue) DO(Error) DO(Object) DO(ObjectWithPath)                    \
  DO(ObjectWithLocalPath) DO(ObjectPath) DO(NamedObject) DO(Declaration) DO(DeclGroup)          \
  DO(DeclGroupWithName) DO(DeclGroupWithPath)
// clang-format on

TEST(EveryGenerator, given_a_null_record_leaves_the_output_as_it_is) {
#define EXPECT_UNTOUCHED(name) expect_untouched(Gen_##name, "Gen_" #name);
  FOR_EVERY_GENERATOR(EXPECT_UNTOUCHED)
}

TEST(EveryGenerator, given_a_null_output_does_nothing) {
#define EXPECT_HARMLESS(name) expect_harmless(Gen_##name, "Gen_" #name);
  FOR_EVERY_GENERATOR(EXPECT_HARMLESS)
}

}  // namespace
