// The two values of pi in use. PI is the double-precision value; PI_SINGLE is pi rounded
// to single precision, which the engine functions and the rated mean pressures work with.
#pragma once

namespace qm {

constexpr double PI = 3.141592653589793;
constexpr double PI_SINGLE = 3.1415927410125732;

// Angular speed in rad/s to rpm: 30/pi.
constexpr double RPM_PER_RAD_PER_S = 9.549296585513721;

}  // namespace qm
