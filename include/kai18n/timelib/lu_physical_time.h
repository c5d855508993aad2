// Physical time: instants on the time line and signed spans between them.
//
// Both are one double of milliseconds, the unit of the calendar engine's time.
// A span is built from the constants (luDuration::Hour * 3), never from a bare
// number: its constructor from double is private, so a count of milliseconds
// cannot be mistaken for one of seconds. An instant counts from
// luPhysicalTime::Epoch, 1970-01-01 00:00:00 UTC, the zero of engine time; to
// convert, engine milliseconds are (t - Epoch) / Millisecond, and an instant
// from milliseconds m is Epoch + Millisecond * m.
//
// The constants are constant-initialised, so they hold their values before any
// start-up code runs; the values are plain data without shared state.
#ifndef KAI18N_TIMELIB_LU_PHYSICAL_TIME_H
#define KAI18N_TIMELIB_LU_PHYSICAL_TIME_H

#include <iosfwd>

namespace TimeLib {

class luPhysicalTime;

/// A signed span of time, in milliseconds.
class luDuration {
  public:
    /// The empty span.
    constexpr luDuration() : m_ms(0.0) {}
    constexpr luDuration(const luDuration&) = default;
    luDuration& operator=(const luDuration&) = default;

    static const luDuration Zero;         ///< 0 ms
    static const luDuration Millisecond;  ///< 1 ms
    static const luDuration Second;       ///< 1000 ms
    static const luDuration Minute;       ///< 60000 ms
    static const luDuration Hour;         ///< 3600000 ms
    static const luDuration Day;          ///< 86400000 ms

    luDuration& operator+=(const luDuration& other) {
        m_ms += other.m_ms;
        return *this;
    }
    luDuration& operator-=(const luDuration& other) {
        m_ms -= other.m_ms;
        return *this;
    }
    luDuration& operator*=(double factor) {
        m_ms *= factor;
        return *this;
    }
    luDuration& operator*=(int factor) {
        m_ms *= factor;
        return *this;
    }
    /// Divides the span; IncorrectData "Duration / 0.0" when `divisor` is 0.0,
    /// leaving the span unchanged.
    luDuration& operator/=(double divisor);

    /// Removes the whole units of `unit` and keeps the remainder, which has
    /// the sign of the span; same as chop(unit).
    luDuration& operator%=(const luDuration& unit) { return chop(unit); }

    /// Removes n whole units, n being *this / unit truncated toward zero to a
    /// 32-bit count, and keeps the remainder. A ratio beyond the 32-bit range
    /// saturates at INT32_MIN or INT32_MAX (the span then keeps more than one
    /// unit), and a NaN ratio counts 0. IncorrectData
    /// "Duration / Duration::Zero" when `unit` is zero, leaving the span unchanged.
    luDuration& chop(const luDuration& unit) {
        int count = 0;
        return chop(unit, count);
    }
    /// The remainder of chop(unit) on a copy; this span stays.
    luDuration chop(const luDuration& unit) const {
        luDuration rest(*this);
        return rest.chop(unit);
    }
    /// As chop(unit), and sets `count` to the units removed. On failure
    /// `count` is left alone.
    luDuration& chop(const luDuration& unit, int& count);

    luDuration operator-() const { return luDuration(-m_ms); }
    luDuration operator-(const luDuration& other) const { return luDuration(m_ms - other.m_ms); }

  private:
    friend class luPhysicalTime;
    friend double operator/(const luDuration& a, const luDuration& b);
    friend bool operator==(const luDuration& a, const luDuration& b);
    friend bool operator<(const luDuration& a, const luDuration& b);
    friend luDuration operator-(const luPhysicalTime& a, const luPhysicalTime& b);
    friend std::ostream& operator<<(std::ostream& os, const luDuration& span);

    constexpr explicit luDuration(double ms) : m_ms(ms) {}

    double m_ms;
};

inline constexpr luDuration luDuration::Zero{0.0};
inline constexpr luDuration luDuration::Millisecond{1.0};
inline constexpr luDuration luDuration::Second{1000.0};
inline constexpr luDuration luDuration::Minute{60000.0};
inline constexpr luDuration luDuration::Hour{3600000.0};
inline constexpr luDuration luDuration::Day{86400000.0};

/// The ratio of two spans; IncorrectData "Duration / Duration::Zero" when `b`
/// is zero.
double operator/(const luDuration& a, const luDuration& b);

/// The double comparisons of the two spans (NaN compares false).
inline bool operator==(const luDuration& a, const luDuration& b) {
    return a.m_ms == b.m_ms;
}
inline bool operator<(const luDuration& a, const luDuration& b) {
    return a.m_ms < b.m_ms;
}
/// !(a < b), so a NaN span is >= everything.
inline bool operator>=(const luDuration& a, const luDuration& b) {
    return !(a < b);
}

/// The span scaled by `factor`, on either side.
inline luDuration operator*(const luDuration& span, double factor) {
    luDuration result(span);
    return result *= factor;
}
inline luDuration operator*(const luDuration& span, int factor) {
    luDuration result(span);
    return result *= factor;
}
inline luDuration operator*(double factor, const luDuration& span) {
    return span * factor;
}
inline luDuration operator*(int factor, const luDuration& span) {
    return span * factor;
}

/// Writes [-][days::][hours:][minutes:]seconds, each part from the first unit
/// the span reaches; no padding; seconds cut (not rounded) to microseconds and
/// written by the stream's default double format. 25 hours give "1::1:0:0",
/// -1500 ms "-1.5". A span that is not finite writes its double ("inf", "nan").
std::ostream& operator<<(std::ostream& os, const luDuration& span);

/// An instant, in milliseconds since Epoch.
class luPhysicalTime {
  public:
    /// Epoch.
    constexpr luPhysicalTime() : m_ms(0.0) {}
    constexpr luPhysicalTime(const luPhysicalTime&) = default;
    luPhysicalTime& operator=(const luPhysicalTime&) = default;

    /// 1970-01-01 00:00:00 UTC.
    static const luPhysicalTime Epoch;

    luPhysicalTime& operator+=(const luDuration& span) {
        m_ms += span.m_ms;
        return *this;
    }
    luPhysicalTime& operator-=(const luDuration& span) {
        m_ms -= span.m_ms;
        return *this;
    }

  private:
    friend bool operator==(const luPhysicalTime& a, const luPhysicalTime& b);
    friend bool operator<(const luPhysicalTime& a, const luPhysicalTime& b);
    friend luDuration operator-(const luPhysicalTime& a, const luPhysicalTime& b);

    double m_ms;
};

inline constexpr luPhysicalTime luPhysicalTime::Epoch{};

/// The instant `span` after `time`.
inline luPhysicalTime operator+(const luPhysicalTime& time, const luDuration& span) {
    luPhysicalTime result(time);
    return result += span;
}

/// The span from `b` to `a`.
inline luDuration operator-(const luPhysicalTime& a, const luPhysicalTime& b) {
    return luDuration(a.m_ms - b.m_ms);
}

/// The double comparisons of the two instants.
inline bool operator==(const luPhysicalTime& a, const luPhysicalTime& b) {
    return a.m_ms == b.m_ms;
}
inline bool operator<(const luPhysicalTime& a, const luPhysicalTime& b) {
    return a.m_ms < b.m_ms;
}

/// Writes the span `time - Epoch` as a duration is written.
std::ostream& operator<<(std::ostream& os, const luPhysicalTime& time);

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_LU_PHYSICAL_TIME_H
