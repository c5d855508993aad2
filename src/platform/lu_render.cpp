// luRender on ICU's Arabic shaping and bidirectional algorithm.
//
// Shaping comes first, on the logical text. The joining form of an Arabic
// letter depends on its neighbours in logical order: the letter before it and
// the letter after it as typed, whatever the display does with the runs
// around them. On the logical text those neighbours are simply adjacent, and
// ICU's shaper takes logical text as it is. Shaping after reordering would
// hand it the visual text, where a right-to-left run stands reversed between
// left-to-right runs and the shaper has to undo that reversal to find the same
// neighbours. Shaping first changes nothing that reordering looks at: every
// presentation form has the bidirectional class of its letter (AL), so the
// levels of the shaped text are those of the original, and the lam-alef
// ligature only merges two AL units into one.
#include "kai18n/platform/lu_render.h"

#include <unicode/char16ptr.h>
#include <unicode/localpointer.h>
#include <unicode/ubidi.h>
#include <unicode/ushape.h>

namespace {

// The paragraph level for a direction value, or false for an unknown value.
bool ParagraphLevel(unsigned char direction, UBiDiLevel* level) {
    switch (direction) {
        case luRender::kLeftToRight:
            *level = UBIDI_LTR;
            return true;
        case luRender::kRightToLeft:
            *level = UBIDI_RTL;
            return true;
        case luRender::kFromText:
            // The first strong character decides; left to right without one.
            *level = UBIDI_DEFAULT_LTR;
            return true;
        default:
            return false;
    }
}

// Letters into their joined forms, lam-alef into one unit (the result may be
// shorter: U_SHAPE_LENGTH_GROW_SHRINK), digits left as they are.
const uint32_t kShapeOptions =
    U_SHAPE_LETTERS_SHAPE | U_SHAPE_TEXT_DIRECTION_LOGICAL | U_SHAPE_LENGTH_GROW_SHRINK;

// Mirrored glyphs in right-to-left runs; directional controls left out.
const uint16_t kReorderOptions = UBIDI_DO_MIRRORING | UBIDI_REMOVE_BIDI_CONTROLS;

// `target` becomes the shaped `source`; its size is the shaped length.
bool Shape(const unsigned short* source, int32_t length, std::vector<unsigned short>& target) {
    target.resize(static_cast<std::size_t>(length));
    UErrorCode status = U_ZERO_ERROR;
    int32_t shaped = u_shapeArabic(icu::ConstChar16Ptr(source), length,
                                   icu::Char16Ptr(target.data()), length, kShapeOptions, &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        target.resize(static_cast<std::size_t>(shaped));
        status = U_ZERO_ERROR;
        shaped = u_shapeArabic(icu::ConstChar16Ptr(source), length, icu::Char16Ptr(target.data()),
                               shaped, kShapeOptions, &status);
    }
    if (U_FAILURE(status) || shaped < 0) return false;
    target.resize(static_cast<std::size_t>(shaped));
    return true;
}

// `target` becomes `source` in visual order, followed by a zero unit.
bool Reorder(const std::vector<unsigned short>& source, UBiDiLevel level,
             std::vector<unsigned short>& target) {
    const int32_t length = static_cast<int32_t>(source.size());
    UErrorCode status = U_ZERO_ERROR;
    icu::LocalUBiDiPointer bidi(ubidi_openSized(length, 0, &status));
    ubidi_setPara(bidi.getAlias(), icu::ConstChar16Ptr(source.data()), length, level, nullptr,
                  &status);
    if (U_FAILURE(status)) return false;
    // Neither option makes the text longer; ask again if the engine disagrees.
    target.resize(static_cast<std::size_t>(length) + 1);
    int32_t written = ubidi_writeReordered(bidi.getAlias(), icu::Char16Ptr(target.data()), length,
                                           kReorderOptions, &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        target.resize(static_cast<std::size_t>(written) + 1);
        status = U_ZERO_ERROR;
        written = ubidi_writeReordered(bidi.getAlias(), icu::Char16Ptr(target.data()), written,
                                       kReorderOptions, &status);
    }
    if (U_FAILURE(status) || written < 0) return false;
    target.resize(static_cast<std::size_t>(written) + 1);
    target.back() = 0;
    return true;
}

}  // namespace

luRender::luRender() : m_result(1, 0) {}

luRender::luRender(const luRender& other) = default;

luRender& luRender::operator=(const luRender& other) = default;

luRender::~luRender() = default;

bool luRender::renderString(const unsigned short* text, int length, unsigned char direction) {
    UBiDiLevel level = UBIDI_LTR;
    if (!ParagraphLevel(direction, &level)) return false;
    if (length < 0 || (text == nullptr && length != 0)) return false;
    if (length == 0) {
        m_result.assign(1, 0);
        return true;
    }
    // The visual text is built beside the last result, which stays as it is
    // until the whole render has succeeded.
    if (!Shape(text, length, m_shaped) || !Reorder(m_shaped, level, m_visual)) return false;
    m_result.swap(m_visual);
    return true;
}
