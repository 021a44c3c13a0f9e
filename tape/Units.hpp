// Units.hpp - millimetres and inches, and the only conversion between them.
//
// Everything is kept in millimetres; inches exist on screen alone.  The factor is the rounded
// 0.0393701 in both directions, so an inch is 25.39998628... mm here and a length survives the way
// to the screen and back.  Plain C++.
#pragma once

#include <cstdint>

namespace tape {

inline constexpr double kInchesPerMillimetre = 0.0393701;
inline constexpr double kPointsPerInch = 72.0;             // paper heights come in points
inline constexpr double kDefaultLengthMillimetres = 100.0; // when the paper has no height

double inchesFromMillimetres(double millimetres) noexcept;
double millimetresFromInches(double inches) noexcept;
double millimetresFromPoints(double points) noexcept;

// The nearest integer, halves away from zero.  A value beyond the integer's range becomes the
// nearest end of it, not-a-number 0.
std::intptr_t roundHalfAwayFromZero(double value) noexcept;

} // namespace tape
