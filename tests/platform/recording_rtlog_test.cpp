// The logger that records its calls, in the place of librtlog.so.1.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

TEST(RecordingLogger, takes_the_place_of_the_platform_logger_and_records_every_call) {
  std::string folder = (fs::temp_directory_path() / "recording-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const std::string record = folder + "/record";
  const std::string command = "LD_LIBRARY_PATH=" RECORDING_RTLOG_FOLDER " RECORDED_LOG=" + record +
                              " CIM_CLIENT_LOG=stderr " LOG_WRITER
                              " init 'log=2=a\\tb\\\\c' 'log=7=%s\nx' null 2>&1";
  FILE* output = popen(command.c_str(), "r");  // NOLINT(cert-env33-c): fixed words
  ASSERT_NE(output, nullptr);
  EXPECT_EQ(fgetc(output), EOF) << "the platform's own logger has written";
  EXPECT_EQ(pclose(output), 0);

  std::ifstream file(record);
  std::ostringstream text;
  text << file.rdbuf();
  EXPECT_EQ(text.str(),
            "rt_log_init\n"
            "_rt_log\tsrc/file.c\t42\tMODULE\tcategory\t2\t%s\ta\\\\tb\\\\\\\\c\n"
            "_rt_log\tsrc/file.c\t42\tMODULE\tcategory\t7\t%s\t%s\\nx\n"
            "_rt_log\t(null)\t0\t(null)\t(null)\t2\t(null)\t(null)\n"
            "_rt_log\tsrc/file.c\t42\tMODULE\tcategory\t2\t%s\t(null)\n");
  fs::remove_all(folder);
}

}  // namespace
