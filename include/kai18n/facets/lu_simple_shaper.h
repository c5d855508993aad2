// Simple text shaping: a ucs2string from logical order into its visual form.
#ifndef KAI18N_FACETS_LU_SIMPLE_SHAPER_H
#define KAI18N_FACETS_LU_SIMPLE_SHAPER_H

#include "kai18n/platform/lu_render.h"
#include "kai18n/strings/ucs2string.h"

/// Applies luRender to a string in place. The render state is the whole
/// object; copies and assignment copy it. One thread at a time.
class luSimpleShaper {
  public:
    luSimpleShaper();
    luSimpleShaper(const luSimpleShaper& other);
    luSimpleShaper& operator=(const luSimpleShaper& other);
    ~luSimpleShaper();

    /// Renders `text` with `direction` (see luRender::renderString: 0 left to
    /// right, 1 right to left, 2 from the first strong character). On success
    /// `text` becomes the visual form, whose length may differ, and the result
    /// is true; on failure `text` is unchanged and the result is false.
    /// Throws only what assigning the string throws.
    bool BidiAndShape(ucs2string& text, unsigned char direction);

  private:
    luRender m_render;
};

#endif  // KAI18N_FACETS_LU_SIMPLE_SHAPER_H
