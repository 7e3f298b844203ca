// Random numbers that are the same on every machine.
#ifndef EQUIVALENCE_RANDOM_H_
#define EQUIVALENCE_RANDOM_H_

#include <cstdint>
#include <random>
#include <string_view>

namespace driver_feature::equivalence {

// A digest of the bytes that begins from `start`: FNV-1a with 64 bits.
constexpr std::uint64_t digestOf(std::string_view bytes,
                                 std::uint64_t start = 14695981039346656037U) {
  std::uint64_t digest = start;
  for (const char byte : bytes) {
    digest ^= static_cast<unsigned char>(byte);
    digest *= 1099511628211U;
  }
  return digest;
}

// The distributions of the standard library differ between its editions.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  // 0 to count - 1; `count` is at least 1.
  std::uint64_t below(std::uint64_t count) { return engine_() % count; }

  // One time in `count`.
  bool oneIn(std::uint64_t count) { return below(count) == 0; }

 private:
  std::mt19937_64 engine_;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_RANDOM_H_
