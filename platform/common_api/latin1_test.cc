#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using Converter = int(unsigned char* out, int* outlen, const unsigned char* in, int* inlen);

Converter* converterOf(const char* library) {
  void* loaded = dlopen(library, RTLD_NOW);
  EXPECT_NE(loaded, nullptr) << dlerror();
  return reinterpret_cast<Converter*>(dlsym(loaded, "isolat1ToUTF8"));
}

Converter* const isolat1ToUTF8 = converterOf(PLATFORM_COMMON_API);

struct Conversion {
  int result;
  int written;
  int read;
  std::string text;

  bool operator==(const Conversion&) const = default;
};

Conversion convert(Converter* converter, const std::string& text, int room) {
  std::string output(static_cast<std::size_t>(room) + 1, '.');
  int written = room;
  int read = static_cast<int>(text.size());
  const int result = converter(reinterpret_cast<unsigned char*>(output.data()), &written,
                               reinterpret_cast<const unsigned char*>(text.data()), &read);
  return {result, written, read, output};
}

TEST(Latin1Test, Convert_EnoughRoom_AllIsWritten) {
  EXPECT_EQ(convert(isolat1ToUTF8, "a\xE4z", 5), (Conversion{4, 4, 3, "a\xC3\xA4z.."}));
  EXPECT_EQ(convert(isolat1ToUTF8, "\x7F\x80\xFF", 5),
            (Conversion{5, 5, 3, "\x7F\xC2\x80\xC3\xBF."}));
  EXPECT_EQ(convert(isolat1ToUTF8, "", 0), (Conversion{0, 0, 0, "."}));
}

TEST(Latin1Test, Convert_LittleRoom_NoCharacterIsCut) {
  EXPECT_EQ(convert(isolat1ToUTF8, "a\xE4z", 2), (Conversion{1, 1, 1, "a.."}));
  EXPECT_EQ(convert(isolat1ToUTF8, "a\xE4z", 3), (Conversion{3, 3, 2, "a\xC3\xA4."}));
  EXPECT_EQ(convert(isolat1ToUTF8, "az", 1), (Conversion{1, 1, 1, "a."}));
}

TEST(Latin1Test, Convert_NullArgument_IsRefused) {
  unsigned char byte = 'a';
  int size = 1;
  EXPECT_EQ(isolat1ToUTF8(nullptr, &size, &byte, &size), -1);
  EXPECT_EQ(isolat1ToUTF8(&byte, nullptr, &byte, &size), -1);
  EXPECT_EQ(isolat1ToUTF8(&byte, &size, nullptr, &size), -1);
  EXPECT_EQ(isolat1ToUTF8(&byte, &size, &byte, nullptr), -1);
}

// libxml2 uses this function in the place of its own when it is loaded later.
TEST(Latin1Test, Convert_EveryShortText_IsAsLibxml2Converts) {
  Converter* const real = converterOf(LIBXML2_FILE_NAME);
  ASSERT_NE(real, isolat1ToUTF8);
  for (const char first : {'\0', 'a', '\x7F', '\x80', '\xC3', '\xFF'}) {
    for (const char second : {'\0', 'z', '\x80', '\xFF'}) {
      for (const char third : {'b', '\xA0'}) {
        const std::string text = {first, second, third};
        for (int room = 0; room <= 7; ++room) {
          EXPECT_EQ(convert(isolat1ToUTF8, text, room), convert(real, text, room))
              << text << ' ' << room;
        }
      }
    }
  }
}

}  // namespace
