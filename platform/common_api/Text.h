// Small text conversions.
#ifndef PLATFORM_COMMON_API_TEXT_H_
#define PLATFORM_COMMON_API_TEXT_H_

// Writes `value` in `radix` (2 to 36, digits in small letters, "-" before a
// negative number) as a terminated text into `text`, which must hold it (34
// bytes always do), and returns `text`. Another radix makes an empty text.
extern "C" char* itoa(int value, char* text, int radix);

#endif  // PLATFORM_COMMON_API_TEXT_H_
