// Work in a copy of the process, which may crash, hang or end itself.
#ifndef HOST_BASE_CHILD_PROCESS_H_
#define HOST_BASE_CHILD_PROCESS_H_

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::host {

// Where what the child writes to its standard output and error goes.
enum class ChildStreams {
  kShared,   // To those of this process.
  kDropped,  // Nowhere.
};

class ChildProcess {
 public:
  // What runs in the child: writes its result to the pipe and returns the
  // child's exit status. An exception that leaves it ends the child with status
  // 1.
  using Work = std::function<int(int pipe)>;

  // Starts the child. It is killed when this process ends. Problem: kNotLoaded
  // when no child process can be made.
  static Result<ChildProcess> start(ChildStreams streams, const Work& work);

  // The same with a file for both standard streams, in a process group of its
  // own, which kill() ends as a whole.
  static Result<ChildProcess> startGroup(int output, const Work& work);

  // Kills a child that has not been waited for.
  ~ChildProcess();
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&& other) = delete;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  // The end of the pipe to read from. It belongs to this object.
  int pipe() const { return pipe_; }

  pid_t id() const { return child_; }  // -1 once it has been waited for.

  // Kills the child, or its group. Does nothing once it has been waited for.
  void kill() const;

  // Asks the child, and not its group, to end. Does nothing once it has been
  // waited for.
  void terminate() const;

  // Whether the child has ended and waits to be waited for.
  bool hasEnded() const;

  // Waits for the child's end, kills what is left of its group, and returns
  // the status as waitpid() gives it. To be called once.
  int wait();

 private:
  ChildProcess(pid_t child, int pipe, bool isGroup)
      : child_(child), pipe_(pipe), isGroup_(isGroup) {}
  static Result<ChildProcess> start(int output, bool isGroup, const Work& work);

  pid_t child_;  // -1 once it has been waited for.
  int pipe_;
  bool isGroup_;
};

// Called in a copy of the process `parent`: ends the copy when the parent ends,
// so that a copy that hangs does not stay.
void endWithParent(pid_t parent);

// "exit status 1" or "signal 11".
std::string describeEnd(int status);

// Runs `work` in a copy of this process and returns its texts. Whatever it
// does to the features, which the library keeps once per process, stays in the
// copy. Problem: kNotLoaded when the copy cannot be made, throws, or ends before
// `work` has returned; the text says which, unless `describe` returns another one
// for the status of the copy, as waitpid() gives it.
using DescribeEnd = std::function<std::string(int status)>;
Result<std::vector<std::string>> runInChild(ChildStreams streams,
                                            const std::function<std::vector<std::string>()>& work,
                                            const DescribeEnd& describe = {});

}  // namespace driver_feature::host

#endif  // HOST_BASE_CHILD_PROCESS_H_
