// The decimal exponent estimate of number output, floor(log10(v) - 0.005),
// found without a logarithm for all but the values next to a boundary.
#ifndef KAI18N_FACETS_DECIMAL_EXPONENT_H
#define KAI18N_FACETS_DECIMAL_EXPONENT_H

/// floor(std::log10(v) - 0.005) for a finite v above 0, exactly as that
/// expression evaluates.
int EstimateDecimalExponent(double v);

#endif  // KAI18N_FACETS_DECIMAL_EXPONENT_H
