#include "programs/printer/inflation.h"

#include <zlib.h>

#include <array>
#include <new>

namespace driver_feature::printer {

namespace {

constexpr std::size_t kPiece = 65536;
// For zlib: 15 is the size of the window, 16 means gzip's frame, and a
// negative size for none.
constexpr int kGzip = 15 + 16;
constexpr int kBare = -15;

}  // namespace

struct Inflation::Stream {
  z_stream z{};

  explicit Stream(int bits) {
    if (::inflateInit2(&z, bits) != Z_OK) throw std::bad_alloc();
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() { ::inflateEnd(&z); }
};

bool isCompression(const std::string& word) {
  return word == "gzip" || word == "deflate";
}

Inflation::Inflation(const std::string& word)
    : stream_(std::make_unique<Stream>(word == "gzip" ? kGzip : kBare)) {}

Inflation::~Inflation() = default;

bool Inflation::inflate(std::string_view bytes, const std::function<bool(std::string_view)>& take) {
  z_stream& z = stream_->z;
  // zlib reads what it does not change through a pointer that would let it.
  z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  z.avail_in = static_cast<uInt>(bytes.size());
  std::array<char, kPiece> buffer;
  for (;;) {
    if (isWhole_ && z.avail_in == 0) return true;
    // Several compressed files in a row are those of one document.
    if (isWhole_ && ::inflateReset(&z) != Z_OK) return false;
    isWhole_ = false;
    z.next_out = reinterpret_cast<Bytef*>(buffer.data());
    z.avail_out = static_cast<uInt>(buffer.size());
    const int result = ::inflate(&z, Z_NO_FLUSH);
    const std::size_t count = buffer.size() - z.avail_out;
    if (count > 0 && !take({buffer.data(), count})) return true;
    isWhole_ = result == Z_STREAM_END;
    // Nothing more can be made of what is there.
    if (result == Z_BUF_ERROR || (result == Z_OK && z.avail_in == 0 && z.avail_out > 0)) {
      return true;
    }
    if (result != Z_OK && result != Z_STREAM_END) return false;
  }
}

}  // namespace driver_feature::printer
