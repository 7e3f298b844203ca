// Lengths of a PPD, in points, as the millimetres of a description.
#ifndef HOST_PPD_POINTS_H_
#define HOST_PPD_POINTS_H_

#include <functional>
#include <string>

namespace driver_feature::ppd {

inline constexpr double kPointsPerMillimetre = 72 / 25.4;

// The points of a length, as a PPD holds them.
inline float pointsOf(double millimetres) {
  return static_cast<float>(millimetres * kPointsPerMillimetre);
}

// Where the printable part of a sheet ends that has a margin there.
inline float farEdge(float length, double marginMillimetres) {
  return static_cast<float>(length - marginMillimetres * kPointsPerMillimetre);
}

// The length in millimetres, with as few decimals as `isExact` accepts.
std::string millimetresText(double points, const std::function<bool(double)>& isExact);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_POINTS_H_
