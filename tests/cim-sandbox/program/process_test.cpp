// The program itself, started on a free port and spoken to in raw bytes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "http/response.h"
#include "record/record.h"
#include "support/documents.h"
#include "support/listener.h"
#include "support/raw_client.h"

namespace sandbox {
namespace {

using test::RawClient;

// A running sandbox; ended by a signal at the latest when this object goes.
class Program {
 public:
  explicit Program(std::vector<std::string> options) {
    options.insert(options.begin(), {CIM_SANDBOX_PROGRAM, "--port", "0"});
    std::vector<char*> arguments;
    for (std::string& option : options) arguments.push_back(option.data());
    arguments.push_back(nullptr);
    int output[2];
    int errors[2];
    EXPECT_EQ(pipe(output), 0);
    EXPECT_EQ(pipe(errors), 0);
    process_ = fork();
    if (process_ == 0) {
      dup2(output[1], STDOUT_FILENO);
      dup2(errors[1], STDERR_FILENO);
      for (const int end : {output[0], output[1], errors[0], errors[1]}) close(end);
      execv(arguments[0], arguments.data());
      _exit(127);
    }
    close(output[1]);
    close(errors[1]);
    output_ = fdopen(output[0], "r");
    errors_ = fdopen(errors[0], "r");
    read_port();
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    if (process_ > 0) end(SIGKILL);
    std::fclose(output_);
    std::fclose(errors_);
  }

  std::uint16_t port() const { return port_; }
  const std::string& first_line() const { return first_line_; }

  // The exit status after `signal` (0: none, it ends by itself); -1 after a crash.
  int end(int signal) {
    if (signal != 0) kill(process_, signal);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string errors() {
    std::string text;
    int letter = 0;
    while ((letter = std::fgetc(errors_)) != EOF) text += static_cast<char>(letter);
    return text;
  }

 private:
  void read_port() {
    char line[200] = "";
    if (!std::fgets(line, sizeof line, output_)) return;
    first_line_ = line;
    const std::size_t colon = first_line_.rfind(':');
    if (colon != std::string::npos) {
      port_ = static_cast<std::uint16_t>(std::stoul(first_line_.substr(colon + 1)));
    }
  }

  pid_t process_ = 0;
  std::FILE* output_ = nullptr;
  std::FILE* errors_ = nullptr;
  std::string first_line_;
  std::uint16_t port_ = 0;
};

// A request in the bytes of a device's client.
std::string request(const std::string& document) {
  return "POST  /cimom HTTP/1.1 \r\n"
         "Content-Type: application/xml; charset=\"utf-8\"\r\n"
         "Content-Length: " +
         std::to_string(document.size() + 1) +
         "\r\n"
         "Authorization: Basic dTpw\r\n"
         "\n\r" +
         document;
}

std::string answer_of(const Program& program, const std::string& bytes) {
  RawClient client(program.port());
  client.send(bytes);
  return client.receive_response();
}

std::string fan_name(const char* id) {
  return "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
         "<KEYVALUE VALUETYPE = \"string\">" +
         std::string(id) + "</KEYVALUE></KEYBINDING></INSTANCENAME>";
}

std::string fan_names_request() {
  return request(
      test::intrinsic_request("EnumerateInstanceNames", test::class_name("ClassName", "CIM_Fan")));
}

TEST(Process, one_line_tells_the_port_and_a_signal_ends_it_well) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Program program({});
    EXPECT_EQ(program.first_line(),
              "listening on 127.0.0.1:" + std::to_string(program.port()) + "\n");
    EXPECT_NE(program.port(), 0);
    EXPECT_EQ(program.end(signal), 0);
    EXPECT_EQ(program.errors(), "");
  }
}

TEST(Process, the_sample_model_is_served_to_a_device_client) {
  Program program({});
  std::string names;
  for (const char* id : {"fan1", "fan2", "fan3"}) {
    names +=
        "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n<KEYBINDING NAME=\"deviceid\">\n"
        "<KEYVALUE VALUETYPE=\"string\">" +
        std::string(id) + "</KEYVALUE>\n</KEYBINDING>\n</INSTANCENAME>\n";
  }
  EXPECT_EQ(answer_of(program, fan_names_request()),
            http::operation_response(test::intrinsic_response(
                "EnumerateInstanceNames", "<IRETURNVALUE>\n" + names + "</IRETURNVALUE>\n")));
}

TEST(Process, a_body_longer_or_shorter_than_announced_gets_400) {
  Program program({});
  const std::string good = fan_names_request();
  const std::string announced = std::to_string(good.size() - good.find("\n\r<") - 1);
  for (const int difference : {-1, 1}) {
    std::string wrong = good;
    wrong.replace(wrong.find(announced), announced.size(),
                  std::to_string(std::stoi(announced) + difference));
    const std::string answer = answer_of(program, wrong);
    EXPECT_TRUE(answer.starts_with("HTTP/1.1 400 Bad Request\r\n")) << answer;
  }
  EXPECT_TRUE(answer_of(program, good).starts_with("HTTP/1.1 200 OK\r\n"));
}

TEST(Process, hostile_bytes_do_not_stop_it) {
  Program program({});
  std::uint32_t state = 12345;  // a fixed sequence of "random" numbers
  const auto next = [&state] { return state = state * 1664525U + 1013904223U; };
  const std::string good = fan_names_request();
  for (int i = 0; i < 300; ++i) {
    std::string bytes = good;
    for (std::uint32_t k = 0; k <= next() % 4; ++k) {
      bytes[(next() >> 8U) % bytes.size()] = static_cast<char>(next() >> 24U);
    }
    RawClient client(program.port());
    client.send(bytes);
    client.finish_sending();
    client.receive_all();
  }
  EXPECT_TRUE(answer_of(program, good).starts_with("HTTP/1.1 200 OK\r\n"));
  EXPECT_EQ(program.end(SIGTERM), 0);
}

TEST(Process, credentials_are_asked_for_when_there_are_some) {
  Program closed({"--user", "u", "--password", "other"});
  EXPECT_EQ(answer_of(closed, fan_names_request()), http::unauthorized_response());
  Program open({"--user", "u", "--password", "p"});
  EXPECT_TRUE(answer_of(open, fan_names_request()).starts_with("HTTP/1.1 200 OK\r\n"));
}

TEST(Process, a_wrong_model_is_reported_with_its_place) {
  const std::string path = testing::TempDir() + "sandbox_wrong.mof";
  std::ofstream(path) << "class A {\n  uint99 P;\n};\n";
  Program program({"--model", path});
  EXPECT_EQ(program.end(0), 1);
  EXPECT_EQ(program.errors(), "cim-sandbox: " + path + ":2:10: expected \"REF\", not \"P\"\n");
  std::remove(path.c_str());
}

TEST(Process, generated_instances_are_served) {
  Program program({"--generate", "CIM_Fan=2000"});
  const std::string answer = answer_of(program, fan_names_request());
  EXPECT_NE(answer.find("<KEYVALUE VALUETYPE=\"string\">DeviceID-2000</KEYVALUE>"),
            std::string::npos);
  Program refused({"--generate", "CIM_Nothing=5"});
  EXPECT_EQ(refused.end(0), 1);
  EXPECT_EQ(refused.errors(), "cim-sandbox: --generate: unknown class \"CIM_Nothing\"\n");
}

TEST(Process, faults_are_carried_out) {
  const std::string path = testing::TempDir() + "sandbox_faults";
  std::ofstream(path) << "# the first answer\nrequest 1 split 50\nrequest 2 close-at 100\n";
  Program program({"--faults", path, "--fault", "request 3 silent"});
  std::remove(path.c_str());
  RawClient split(program.port());
  split.send(fan_names_request());
  EXPECT_TRUE(split.receive_once(2047).ends_with("CIMOperation: MethodResponse\r\n\r\n"));
  EXPECT_TRUE(split.receive_once(2047).starts_with("<?xml"));
  RawClient closed(program.port());
  closed.send(fan_names_request());
  EXPECT_EQ(closed.receive_all().size(), 100U);
  RawClient silent(program.port());
  silent.send(fan_names_request());
  EXPECT_TRUE(silent.stays_silent(200));
}

TEST(Process, a_change_is_announced_to_a_listener) {
  const test::Listener listener;
  Program program({"--indicate", "http://127.0.0.1:" + std::to_string(listener.port()) + "/here"});
  const std::string answer =
      answer_of(program, request(test::extrinsic_request("Stop", fan_name("fan1"), "")));
  EXPECT_TRUE(answer.starts_with("HTTP/1.1 200 OK\r\n"));
  const std::string indication = listener.serve("</CIM>\n", "HTTP/1.1 200 OK\r\n\r\n");
  EXPECT_TRUE(indication.starts_with("POST /here HTTP/1.1\r\n"));
  EXPECT_NE(indication.find("<INSTANCE CLASSNAME=\"CIM_InstModification\">"), std::string::npos);
}

// Everything that the operations of the sample model can do, once.
std::vector<std::string> session() {
  const auto name = [](const std::string& id) {
    return test::parameter("InstanceName", fan_name(id.c_str()));
  };
  const auto object = test::parameter("ObjectName", fan_name("fan1"));
  std::vector<std::string> documents;
  const auto call = [&documents](const char* operation, const std::string& parameters) {
    documents.push_back(test::intrinsic_request(operation, parameters));
  };
  call("EnumerateClassNames", test::flag("DeepInheritance", "TRUE"));
  call("EnumerateClasses", test::flag("DeepInheritance", "TRUE"));
  call("GetClass", test::class_name("ClassName", "Sandbox_EveryType"));
  call("EnumerateInstances", test::class_name("ClassName", "Sandbox_EveryType"));
  call("EnumerateInstanceNames", test::class_name("ClassName", "CIM_Component"));
  call("GetInstance", name("fan1"));
  call("CreateInstance",
       test::parameter("NewInstance",
                       "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"DeviceID\" "
                       "TYPE=\"string\"><VALUE>fan9</VALUE></PROPERTY></INSTANCE>"));
  call("ModifyInstance",
       test::parameter("ModifiedInstance",
                       "<VALUE.NAMEDINSTANCE>" + fan_name("fan9") +
                           "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"DesiredSpeed\" "
                           "TYPE=\"uint64\"><VALUE>9</VALUE></PROPERTY></INSTANCE>"
                           "</VALUE.NAMEDINSTANCE>"));
  call("Associators", object);
  call("AssociatorNames", object);
  call("References", object);
  call("ReferenceNames", object);
  call("ExecQuery", test::flag("QueryLanguage", "WQL") +
                        test::flag("Query", "SELECT * FROM CIM_Fan WHERE DesiredSpeed = 9"));
  documents.push_back(test::extrinsic_request("Stop", fan_name("fan1"), ""));
  documents.push_back(test::extrinsic_request("Stop", fan_name("fan1"), ""));
  call("DeleteInstance", name("fan9"));
  call("DeleteInstance", name("fan9"));
  return documents;
}

TEST(Process, a_recorded_session_gives_the_same_answers_when_it_is_replayed) {
  const std::string path = testing::TempDir() + "sandbox_session";
  {
    Program program({"--record", path});
    for (const std::string& document : session()) {
      const std::string answer = answer_of(program, request(document));
      EXPECT_TRUE(answer.starts_with("HTTP/1.1 200 OK\r\n")) << document;
    }
    EXPECT_EQ(program.end(SIGTERM), 0);
  }
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  std::remove(path.c_str());
  const auto read = record::read_record(content.str());
  ASSERT_TRUE(std::holds_alternative<std::vector<record::Exchange>>(read));
  const auto& exchanges = std::get<std::vector<record::Exchange>>(read);
  ASSERT_EQ(exchanges.size(), session().size());
  Program again({});
  for (const record::Exchange& exchange : exchanges) {
    EXPECT_EQ(answer_of(again, exchange.request), exchange.answer) << exchange.operation;
  }
}

}  // namespace
}  // namespace sandbox
