#include "bench/real_models.h"

#include <filesystem>

namespace driver_feature::bench {

std::vector<int> realModels() {
  std::vector<int> numbers;
  while (std::filesystem::exists(modelPath("real_ppd", static_cast<int>(numbers.size())))) {
    numbers.push_back(static_cast<int>(numbers.size()));
  }
  return numbers;
}

}  // namespace driver_feature::bench
