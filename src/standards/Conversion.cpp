#include "standards/Conversion.h"

#include "core/ErrorHandler.h"
#include "core/Errors.h"

namespace kvlr {
namespace {

// 400 and 800 yards to short-course metres use this number, never the CvtFactor setting.
constexpr double kFixedYardsToShort = 1.11;

[[noreturn]] void ThrowOverflow() {
  throw KvlError(cvt::kOverflowError, "Overflow");
}

#ifdef __FAST_MATH__
#error "Round below needs IEEE arithmetic; build without -ffast-math"
#endif

// VB's CLng: to the nearest whole number, halves to even, within 32 bits. The value stays
// a double because every following step is double arithmetic again.
inline double Round(double value) {
  // Written so that NaN fails too.
  if (!(value >= -2147483648.5 && value < 2147483647.5)) ThrowOverflow();
  // Adding and taking away 1.5 * 2^52 leaves the nearest whole number, halves to even, as
  // std::nearbyint does (both in the default rounding mode), without a library call.
  constexpr double kShift = 6755399441055744.0;
  return (value + kShift) - kShift;
}

inline int32_t Whole(double value) {
  return static_cast<int32_t>(Round(value));
}

// VB's `/` on doubles: x / 0 is "Division by zero", 0 / 0 "Overflow".
inline double Divide(double numerator, double divisor) {
  if (divisor == 0) {
    if (numerator == 0) ThrowOverflow();
    throw KvlError(cvt::kDivisionByZeroError, "Division by zero");
  }
  return numerator / divisor;
}

// 400 (freestyle only) and every distance from 500 up.
int32_t ConvertLongEvent(const CvtFactors& f, int16_t distance, double t, double p, double n,
                         char from, char to) {
  if ((distance == 400 || distance == 800) && from == 'Y' && to == 'S') {
    return Whole(t * kFixedYardsToShort);
  }
  const bool short_pair = from == 'S' || to == 'S';
  const double s = f[cvt::kStraight];
  const double v = t;
  double e = n;
  double r = 0;

  // A metres distance: the time is taken as a metres time going to yards, whatever the
  // courses say; turns off first, factor second.
  switch (distance) {
    case 400:
    case 800:
    case 1500: {
      if (distance == 400) {
        e = short_pair ? 4 : 12;
      } else if (distance == 800) {
        e = short_pair ? 8 : 24;
      } else {
        e = short_pair ? 6 : 36;
      }
      r = s == 0 ? Round(v - e * p) : Round(v - v * s);
      return Whole(Divide(r, distance == 1500 ? f[cvt::kCvt1650] : f[cvt::kCvt500]));
    }
    case 500:
      e = short_pair ? 4 : 12;
      r = Round(v * f[cvt::kCvt500]);
      break;
    case 1000:
      e = short_pair ? 8 : 24;
      r = Round(v * f[cvt::kCvt500]);
      break;
    case 1650:
      e = short_pair ? 6 : 36;
      r = Round(v * f[cvt::kCvt1650]);
      break;
    default:
      // No such event: r stays 0 and the result means nothing; callers never ask.
      break;
  }

  // A yards distance: factor first, then the turns, and those only for a yards time.
  if (from != 'L' && from != 'S') {
    r = s > 0 ? Round(t * s + r) : r + e * p;
  } else if (s > 0) {
    r = Round(r - t * s);
  }
  return Whole(r);
}

}  // namespace

int32_t ConvertTime(const CvtFactors& f, int16_t distance, int32_t time, int16_t stroke, char from,
                    char to) {
  if (from == to || time == 0) return time;
  if (stroke < 0 || stroke > 10) throw KvlError(cvt::kSubscriptError, "Subscript out of range");

  const double t = time;
  // The stroke code is the slot: strokes 6 to 10 read whatever the later slots hold.
  const double p = Round(f[stroke] * 100);
  const double n = Round(distance / 50.0);
  if (n < 0 || n > 255) ThrowOverflow();  // the turn count is a byte
  const double s = f[cvt::kStraight];
  double v = t;

  const bool long_short = (from == 'L' && to == 'S') || (from == 'S' && to == 'L');
  if (!long_short) {
    if (distance > 400 || (distance == 400 && stroke == 1)) {
      return ConvertLongEvent(f, distance, t, p, n, from, to);
    }
    const double y0 = f[cvt::kYardsToShort];
    if (to == 'Y') {
      if (from == 'L') {
        if (s > 0) return Whole(Divide(Round(v) - t * s, y0));
        v = v - n * p;
      }
      return Whole(Divide(v, y0));
    }
    if (from == 'Y') v = v * y0;  // not rounded before the turns go on
  }

  if (to == 'L') {
    v = s > 0 ? v + t * s : v + n * p;
  } else if (from == 'L') {
    v = s > 0 ? v - t * s : v - n * p;
  }
  return Whole(v);
}

int32_t ConvertTime(AppState& state, int16_t distance, int32_t time, int16_t stroke, char from,
                    char to) {
  try {
    return ConvertTime(state.gCvtFactors, distance, time, stroke, from, to);
  } catch (const KvlError& e) {
    // Repeating the step would fail the same way, so every answer goes on with 0.
    ReportError(state, "basUtil.ConvertTime", e);
    return 0;
  }
}

}  // namespace kvlr
