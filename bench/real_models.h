// Models of real printers: PPD files, and the descriptions that the program has
// imported of them, under the same number.
#ifndef BENCH_REAL_MODELS_H_
#define BENCH_REAL_MODELS_H_

#include <vector>

#include "bench/operation.h"

namespace driver_feature::bench {

// The numbers of the models in the folder of models, from 0 on. None, unless
// compare.py --real has put some there.
std::vector<int> realModels();

}  // namespace driver_feature::bench

#endif  // BENCH_REAL_MODELS_H_
