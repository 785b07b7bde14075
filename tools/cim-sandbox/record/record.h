// Exchanges in a file: written while the sandbox serves, and read back to replay them.
#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sandbox::record {

struct Exchange {
  std::string operation;  // empty when the request called none
  std::string request;    // head and body as they arrived, but for the credentials
  std::string answer;     // as it was sent, without pauses
};

// Appends exchanges to a file, each whole at once:
//
//   cim-sandbox record 1
//   exchange 1 GetInstance
//   request 812
//   ...812 bytes...
//   answer 1543
//   ...1543 bytes...
//
// Each line, and each run of bytes, is followed by a line feed.
class Recorder {
 public:
  // False when the file cannot be written.
  bool open(const std::string& path);
  void write(const Exchange& exchange);

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, CloseFile> file_;
  unsigned long count_ = 0;
};

// The exchanges of such a text, or what is wrong with it.
std::variant<std::vector<Exchange>, std::string> read_record(std::string_view text);

// A request's head with its credentials made unreadable.
std::string without_credentials(const std::string& head);

}  // namespace sandbox::record
