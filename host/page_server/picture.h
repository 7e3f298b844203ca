// A picture of a page with the PostScript of some settings, drawn by Ghostscript.
#ifndef HOST_PAGE_SERVER_PICTURE_H_
#define HOST_PAGE_SERVER_PICTURE_H_

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/page_server/child_text.h"

namespace driver_feature::page_server {

// Draws one picture at a time. Of those requested meanwhile, only the newest is
// drawn.
class Picture final {
 public:
  struct Result {
    long serial = 0;      // Of the state whose settings they are.
    std::string device;   // A JSON object, or "null".
    std::string problem;  // Why there is no picture, or what is wrong with it.
    std::string png;      // May be empty.
  };
  using Done = std::function<void(const Result& result)>;

  // `program` is Ghostscript: a file, or a name to be searched for. The loop must
  // outlive the object.
  Picture(host::EventLoop& loop, std::string program, Done done);
  ~Picture();
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  void want(long serial, std::string settings);

 private:
  struct Wish {
    long serial = 0;
    std::string settings;
  };

  void start();
  void finish(long serial, const std::string& printed, std::optional<int> status);
  void failLater(long serial, const std::string& problem);

  host::EventLoop& loop_;
  std::string program_;
  Done done_;
  std::filesystem::path folder_;  // Of its files; made for the first picture.
  std::optional<Wish> wish_;
  std::unique_ptr<ChildText> run_;
  std::optional<host::EventLoop::Timer> timer_;
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_PICTURE_H_
