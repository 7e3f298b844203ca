// The conversion that libxml2 names so, which the plug-in calls in each load. It is
// made here as well, so that no load has to wait for libxml2.

namespace {

constexpr unsigned char kFirstOfTwoBytes = 0x80;

int sizeInUtf8(unsigned char character) {
  return character < kFirstOfTwoBytes ? 1 : 2;
}

unsigned char* write(unsigned char character, unsigned char* to) {
  if (character < kFirstOfTwoBytes) {
    *to++ = character;
  } else {
    *to++ = static_cast<unsigned char>(0xC0U | (character >> 6U));
    *to++ = static_cast<unsigned char>(0x80U | (character & 0x3FU));
  }
  return to;
}

}  // namespace

// Converts ISO-8859-1 to UTF-8 as far as there is room. Sets the sizes to what has
// been written and read, and returns what has been written, or -1 for a null
// argument.
extern "C" int isolat1ToUTF8(unsigned char* out, int* outlen, const unsigned char* in, int* inlen) {
  if (out == nullptr || outlen == nullptr || in == nullptr || inlen == nullptr) return -1;
  int written = 0;
  int read = 0;
  while (read < *inlen && written + sizeInUtf8(in[read]) <= *outlen) {
    written = static_cast<int>(write(in[read++], out + written) - out);
  }
  *outlen = written;
  *inlen = read;
  return written;
}
