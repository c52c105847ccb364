#pragma once

// The accurate step: fixed-point integers, with more words until the rounding is decided.

namespace vexor::detail::elementary {

/// For finite numbers of at least 2^-27 in magnitude.
double AccurateSin(double x);
double AccurateCos(double x);
/// For −1 < x < 1.
double AccurateAcos(double x);
/// For finite numbers other than 0.
double AccurateAtan2(double y, double x);

/// atan2(y, x) if the smaller magnitude is less than 2^-60 times the larger one, for finite numbers
/// other than 0.
double Atan2NearAxis(double y, double x);

} // namespace vexor::detail::elementary
