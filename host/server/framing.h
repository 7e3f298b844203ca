// Finds the ends of a request's parts, so that libcups receives only whole ones.
#ifndef HOST_SERVER_FRAMING_H_
#define HOST_SERVER_FRAMING_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace driver_feature::host {

// libcups waits for the rest of a line that has begun, up to ten seconds, even on
// a connection that does not block. In that time nobody else would be served, so
// a line is handed on when all of it has arrived. What the lines say is left to
// libcups.
class Framing {
 public:
  explicit Framing(std::size_t longestHead) : longestHead_(longestHead) {}

  // What comes next, from the first byte that has not been counted.
  void expectHead();
  void expectBytes(std::uint64_t count);
  void expectChunks();

  // How many bytes at the beginning of `waiting` may be handed on. They count as
  // handed on from now. 0 as long as a part is incomplete.
  std::size_t take(std::string_view waiting);

  // What was expected has been handed on.
  bool isDone() const { return part_ == Part::kNothing; }

  // The head is longer than it may be, or a line is not one of chunks.
  bool isMalformed() const { return part_ == Part::kMalformed; }

 private:
  enum class Part { kNothing, kHead, kBytes, kChunkLine, kChunk, kMalformed };

  std::size_t takeHead(std::string_view waiting);
  std::size_t takeBytes(std::string_view waiting);
  std::size_t takeChunkLine(std::string_view waiting);
  std::size_t takeChunk(std::string_view waiting);
  std::size_t takeLastLines(std::string_view waiting, std::size_t first);

  std::size_t longestHead_;
  Part part_ = Part::kNothing;
  std::size_t searched_ = 0;  // Of a head: without an end up to here.
  std::uint64_t left_ = 0;
};

// Whether a head says that the body is compressed: a field "Content-Encoding" with
// any value but "identity".
bool hasCodedBody(std::string_view head);

}  // namespace driver_feature::host

#endif  // HOST_SERVER_FRAMING_H_
