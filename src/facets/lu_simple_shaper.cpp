#include "kai18n/facets/lu_simple_shaper.h"

#include <climits>

luSimpleShaper::luSimpleShaper() = default;

luSimpleShaper::luSimpleShaper(const luSimpleShaper& other) = default;

luSimpleShaper& luSimpleShaper::operator=(const luSimpleShaper& other) = default;

luSimpleShaper::~luSimpleShaper() = default;

bool luSimpleShaper::BidiAndShape(ucs2string& text, unsigned char direction) {
    // A text longer than the engine's count cannot be rendered.
    if (text.length() > static_cast<unsigned int>(INT_MAX)) return false;
    if (!m_render.renderString(text.data(), static_cast<int>(text.length()), direction))
        return false;
    text.assign(m_render.c_str(), static_cast<unsigned int>(m_render.size()));
    return true;
}
