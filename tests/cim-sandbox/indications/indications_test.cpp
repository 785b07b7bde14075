// Indications: where they go, what they say, and how they are delivered.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/eventfd.h>

#include <thread>

#include "indications/courier.h"
#include "indications/herald.h"
#include "support/listener.h"
#include "support/managed_objects.h"

namespace sandbox::indications {
namespace {

TEST(Url, address_port_and_path_are_read) {
  const auto url = url_from("http://127.0.0.1:5990/a/b");
  ASSERT_TRUE(url);
  EXPECT_EQ(url->address, "127.0.0.1");
  EXPECT_EQ(url->port, 5990);
  EXPECT_EQ(url->path, "/a/b");
  EXPECT_EQ(url_from("http://localhost")->address, "127.0.0.1");
  EXPECT_EQ(url_from("http://localhost")->port, 80);
  EXPECT_EQ(url_from("http://localhost")->path, "/");
}

TEST(Url, others_are_refused) {
  for (const char* wrong :
       {"", "127.0.0.1:80", "https://127.0.0.1/", "http://example.com/", "http://127.0.0.1:0/",
        "http://127.0.0.1:70000/", "http://127.0.0.1:/", "http://127.0.0.1:8x/",
        "http://127.0.0.1/a b", "http://127.0.0.1/a\r\nX: y"}) {
    EXPECT_FALSE(url_from(wrong)) << wrong;
  }
}

class Heralds : public test::ManagedObjects {
 protected:
  Heralds()
      : ManagedObjects(
            "class CIM_InstModification { string IndicationIdentifier; datetime IndicationTime;\n"
            "  [EmbeddedObject] string SourceInstance; string SourceInstanceModelPath;\n"
            "  [EmbeddedObject] string PreviousInstance; };\n"
            "class CIM_InstCreation { string IndicationIdentifier; string SourceInstanceModelPath;"
            "};\n"
            "class CIM_ThresholdIndication { string AlertingManagedElement; string Message;\n"
            "  uint16 PerceivedSeverity; string ThresholdIdentifier; string ThresholdValue;\n"
            "  string ObservedValue; };\n"
            "class Sensor { [Key] string Id; sint32 CurrentReading; sint32 UpperThresholdCritical;"
            "\n  sint32 LowerThresholdNonCritical; };\n"
            "instance of Sensor { Id = \"s\"; CurrentReading = 20; UpperThresholdCritical = 50;\n"
            "  LowerThresholdNonCritical = 5; };"),
        herald_(
            repository_.find("root/cimv2")->classes,
            [this](const std::string& document) { documents_.push_back(document); },
            [] { return "20240101000000.000000+000"; }) {
    manager_.set_listener(&herald_);
  }

  void modify(const char* property, const char* text) {
    EXPECT_TRUE(manager_.modify_instance(path("Sensor.Id=\"s\""),
                                         {"Sensor", {given(property, text)}}, std::nullopt));
  }

  // The messages of the threshold indications since the last time.
  std::string alerts() {
    std::string messages;
    for (const std::string& document : documents_) {
      const std::string label = "NAME=\"Message\" TYPE=\"string\">\n<VALUE>";
      const std::size_t begin = document.find(label);
      if (begin == std::string::npos) continue;
      const std::size_t text = begin + label.size();
      messages += document.substr(text, document.find('<', text) - text) + "; ";
    }
    documents_.clear();
    return messages;
  }

  std::vector<std::string> documents_;
  Herald herald_;
};

TEST_F(Heralds, a_modification_carries_the_instance_before_and_after) {
  modify("CurrentReading", "21");
  const auto sensor = [](const char* reading) {
    return "<VALUE><![CDATA[<INSTANCE CLASSNAME=\"Sensor\">\n"
           "<PROPERTY NAME=\"Id\" TYPE=\"string\">\n<VALUE>s</VALUE>\n</PROPERTY>\n"
           "<PROPERTY NAME=\"CurrentReading\" TYPE=\"sint32\">\n<VALUE>" +
           std::string(reading) +
           "</VALUE>\n</PROPERTY>\n"
           "<PROPERTY NAME=\"UpperThresholdCritical\" TYPE=\"sint32\">\n<VALUE>50</VALUE>\n"
           "</PROPERTY>\n"
           "<PROPERTY NAME=\"LowerThresholdNonCritical\" TYPE=\"sint32\">\n<VALUE>5</VALUE>\n"
           "</PROPERTY>\n"
           "</INSTANCE>\n]]></VALUE>\n";
  };
  ASSERT_EQ(documents_.size(), 1U);
  EXPECT_EQ(documents_[0],
            "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
            "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\">\n"
            "<SIMPLEEXPREQ>\n"
            "<EXPMETHODCALL NAME=\"ExportIndication\">\n"
            "<EXPPARAMVALUE NAME=\"NewIndication\">\n"
            "<INSTANCE CLASSNAME=\"CIM_InstModification\">\n"
            "<PROPERTY NAME=\"IndicationIdentifier\" TYPE=\"string\">\n"
            "<VALUE>cim-sandbox:1</VALUE>\n"
            "</PROPERTY>\n"
            "<PROPERTY NAME=\"IndicationTime\" TYPE=\"datetime\">\n"
            "<VALUE>20240101000000.000000+000</VALUE>\n"
            "</PROPERTY>\n"
            "<PROPERTY NAME=\"SourceInstance\" TYPE=\"string\" EmbeddedObject=\"object\">\n" +
                sensor("21") +
                "</PROPERTY>\n"
                "<PROPERTY NAME=\"SourceInstanceModelPath\" TYPE=\"string\">\n"
                "<VALUE>root/cimv2:Sensor.Id=\"s\"</VALUE>\n"
                "</PROPERTY>\n"
                "<PROPERTY NAME=\"PreviousInstance\" TYPE=\"string\" EmbeddedObject=\"object\">\n" +
                sensor("20") +
                "</PROPERTY>\n"
                "</INSTANCE>\n"
                "</EXPPARAMVALUE>\n"
                "</EXPMETHODCALL>\n"
                "</SIMPLEEXPREQ>\n"
                "</MESSAGE>\n"
                "</CIM>\n");
}

TEST_F(Heralds, only_indications_that_the_model_has_are_announced) {
  ASSERT_TRUE(manager_.create_instance("root/cimv2", {"Sensor", {given("Id", "new")}}));
  ASSERT_EQ(documents_.size(), 1U);
  EXPECT_NE(documents_[0].find("<INSTANCE CLASSNAME=\"CIM_InstCreation\">"), std::string::npos);
  ASSERT_TRUE(manager_.delete_instance(path("Sensor.Id=\"new\"")));
  EXPECT_EQ(documents_.size(), 1U);  // there is no CIM_InstDeletion
}

TEST_F(Heralds, an_alert_comes_when_a_reading_passes_a_threshold_and_not_while_it_stays) {
  modify("CurrentReading", "50");
  EXPECT_EQ(alerts(), "");
  modify("CurrentReading", "51");
  EXPECT_EQ(alerts(), "CurrentReading 51 is above UpperThresholdCritical 50; ");
  modify("CurrentReading", "60");
  EXPECT_EQ(alerts(), "");
  modify("CurrentReading", "40");
  EXPECT_EQ(alerts(), "");
  modify("UpperThresholdCritical", "30");
  EXPECT_EQ(alerts(), "CurrentReading 40 is above UpperThresholdCritical 30; ");
  modify("CurrentReading", "4");
  EXPECT_EQ(alerts(), "CurrentReading 4 is below LowerThresholdNonCritical 5; ");
}

TEST_F(Heralds, an_alert_says_how_severe_it_is) {
  modify("CurrentReading", "51");
  ASSERT_EQ(documents_.size(), 2U);
  EXPECT_NE(documents_[1].find("NAME=\"PerceivedSeverity\" TYPE=\"uint16\">\n<VALUE>6</VALUE>"),
            std::string::npos);
  EXPECT_NE(documents_[1].find("<VALUE>root/cimv2:Sensor.Id=\"s\"</VALUE>"), std::string::npos);
  documents_.clear();
  modify("CurrentReading", "4");
  ASSERT_EQ(documents_.size(), 2U);
  EXPECT_NE(documents_[1].find("NAME=\"PerceivedSeverity\" TYPE=\"uint16\">\n<VALUE>3</VALUE>"),
            std::string::npos);
}

TEST(PresentTime, the_time_is_a_cim_date_time) {
  EXPECT_TRUE(scalar_from(present_time(), Type::DateTime)) << present_time();
}

using test::Listener;

Url url_of(const Listener& listener) { return {"127.0.0.1", listener.port(), "/listener"}; }

class Couriers : public testing::Test {
 protected:
  // Runs the loop until `courier_` has reported that often, or for the given time.
  void run(std::size_t reports, http::Milliseconds longest) {
    wanted_ = reports;
    const auto timer = loop_.after(longest, [this] { loop_.stop(); });
    loop_.run();
    loop_.cancel(timer);
  }

  std::unique_ptr<Courier> courier_to(const Url& url, Courier::Limits limits = {}) {
    return std::make_unique<Courier>(loop_, url, limits, [this](const std::string& report) {
      reports_.push_back(report);
      if (reports_.size() >= wanted_) loop_.stop();
    });
  }

  http::EventLoop loop_;
  std::vector<std::string> reports_;
  std::size_t wanted_ = 0;
};

TEST_F(Couriers, documents_are_posted_one_after_the_other) {
  const Listener listener;
  const auto courier = courier_to(url_of(listener));
  courier->deliver("<one/>");
  courier->deliver("<two/>");
  std::string first;
  std::string second;
  const http::Descriptor done(eventfd(0, 0));
  loop_.watch(done.get(), POLLIN, [this](short) { loop_.stop(); });
  std::thread peer([&] {
    first = listener.serve("<one/>", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    second = listener.serve("<two/>", "HTTP/1.1 200 OK\r\n\r\n");
    const std::uint64_t one = 1;
    EXPECT_EQ(write(done.get(), &one, sizeof one), static_cast<ssize_t>(sizeof one));
  });
  run(1, http::Milliseconds(10000));
  peer.join();
  loop_.forget(done.get());
  EXPECT_EQ(first, "POST /listener HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(listener.port()) +
                       "\r\n"
                       "Content-Type: application/xml; charset=\"utf-8\"\r\n"
                       "Content-Length: 6\r\n"
                       "Connection: close\r\n"
                       "CIMExport: MethodRequest\r\n"
                       "CIMExportMethod: ExportIndication\r\n"
                       "\r\n"
                       "<one/>");
  EXPECT_TRUE(second.ends_with("\r\n\r\n<two/>"));
  EXPECT_TRUE(reports_.empty());
}

TEST_F(Couriers, a_listener_that_refuses_is_reported) {
  const Listener listener;
  const auto courier = courier_to(url_of(listener));
  courier->deliver("<one/>");
  std::thread peer([&] { listener.serve("<one/>", "HTTP/1.1 404 Not Found\r\n\r\n"); });
  run(1, http::Milliseconds(10000));
  peer.join();
  ASSERT_EQ(reports_.size(), 1U);
  EXPECT_EQ(reports_[0],
            "an indication could not be delivered to 127.0.0.1:" + std::to_string(listener.port()) +
                ": the answer is HTTP/1.1 404 Not Found\r");
}

TEST_F(Couriers, nobody_listening_is_reported_for_each_document) {
  Url url;
  {
    const Listener gone;
    url = url_of(gone);
  }
  const auto courier = courier_to(url);
  courier->deliver("<one/>");
  courier->deliver("<two/>");
  run(2, http::Milliseconds(10000));
  ASSERT_EQ(reports_.size(), 2U);
  EXPECT_TRUE(reports_[1].ends_with(": Connection refused"));
}

TEST_F(Couriers, a_listener_that_does_not_answer_is_given_up) {
  const Listener silent;  // the system takes the connection, nobody reads
  const auto courier = courier_to(url_of(silent), {1000, http::Milliseconds(100)});
  courier->deliver("<one/>");
  run(1, http::Milliseconds(10000));
  ASSERT_EQ(reports_.size(), 1U);
  EXPECT_TRUE(reports_[0].ends_with(": it takes too long"));
}

TEST_F(Couriers, only_so_many_documents_wait) {
  const Listener silent;
  const auto courier = courier_to(url_of(silent), {2, http::Milliseconds(5000)});
  courier->deliver("<one/>");
  courier->deliver("<two/>");
  EXPECT_TRUE(reports_.empty());
  courier->deliver("<three/>");
  ASSERT_EQ(reports_.size(), 1U);
  EXPECT_EQ(reports_[0], "too many indications wait: the oldest is dropped");
}

}  // namespace
}  // namespace sandbox::indications
