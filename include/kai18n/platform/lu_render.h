// The rendering engine: turns a UTF-16 text from logical order (as stored)
// into visual order (as displayed), with Arabic letters in their joined forms.
//
// An object keeps the result of its last render; it serves one thread at a
// time. Separate objects share nothing and may work on separate threads.
#ifndef KAI18N_PLATFORM_LU_RENDER_H
#define KAI18N_PLATFORM_LU_RENDER_H

#include <vector>

class luRender {
  public:
    /// The values of `direction` in renderString: the paragraph direction.
    static const unsigned char kLeftToRight = 0;
    static const unsigned char kRightToLeft = 1;
    /// The direction of the first strong character; left to right if there is none.
    static const unsigned char kFromText = 2;

    /// Holds an empty result.
    luRender();
    luRender(const luRender& other);
    luRender& operator=(const luRender& other);
    ~luRender();

    /// Renders `length` units from `text` in two steps:
    ///  1. Arabic letters take their contextual presentation forms (U+FB50 to
    ///     U+FEFF), chosen on their logical neighbours; lam followed by alef
    ///     becomes one ligature, so the result can be shorter than the text.
    ///  2. The Unicode bidirectional algorithm, with the paragraph direction
    ///     given by `direction`, puts the units in visual order, left to
    ///     right; characters with a mirrored glyph (brackets) are mirrored in
    ///     right-to-left runs, and the explicit directional controls (LRM,
    ///     RLM, LRE, ...) are left out.
    /// Returns false, and keeps the previous result, for a `direction` other
    /// than 0, 1 and 2, a negative `length`, a null `text` with a non-zero
    /// `length`, or a failure of the engine.
    bool renderString(const unsigned short* text, int length, unsigned char direction);

    /// The result of the last successful render, zero-terminated; never null.
    /// Valid until the next render or the object's end.
    const unsigned short* c_str() const { return m_result.data(); }
    /// The number of units of the result, terminator excluded.
    int size() const { return static_cast<int>(m_result.size()) - 1; }

  private:
    std::vector<unsigned short> m_result;  // the result and a zero unit
    std::vector<unsigned short> m_shaped;  // scratch: the shaped logical text
    std::vector<unsigned short> m_visual;  // scratch: the next result
};

#endif  // KAI18N_PLATFORM_LU_RENDER_H
