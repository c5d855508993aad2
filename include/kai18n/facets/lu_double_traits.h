// Facts about doubles that number output and input share: the table of
// powers of ten and the floating-point class of a value.
#ifndef KAI18N_FACETS_LU_DOUBLE_TRAITS_H
#define KAI18N_FACETS_LU_DOUBLE_TRAITS_H

class lu_double_traits {
  public:
    static const int kPowersOfTenCount = 717;
    /// Index of 1.0 in kPowersOfTen.
    static const int kPowerOfTenZero = 308;
    /// Entry i is 10 to the power i - 308 for i from 0 to 616 (the nearest
    /// double, but entry 434 one unit in the last place above it); entries 617
    /// to 716 are 0.0, so an index past the powers gives zero.
    static const double kPowersOfTen[kPowersOfTenCount];

    // Floating-point classes.
    static const int kSignalingNaN = 0x0001;
    static const int kQuietNaN = 0x0002;
    static const int kNegativeInfinity = 0x0004;
    static const int kNegativeNormal = 0x0008;
    static const int kNegativeDenormal = 0x0010;
    static const int kNegativeZero = 0x0020;
    static const int kPositiveZero = 0x0040;
    static const int kPositiveDenormal = 0x0080;
    static const int kPositiveNormal = 0x0100;
    static const int kPositiveInfinity = 0x0200;

    /// The class of `value`, from the bits of the double.
    static int GetIeeeClass(double value);
};

#endif  // KAI18N_FACETS_LU_DOUBLE_TRAITS_H
