// Built against an installed kai18n, once through find_package and once through pkg-config.
#include <kai18n/kai18n.h>

#include <iostream>

int main() {
    const ucs2string text(reinterpret_cast<const unsigned char*>("caf\xC3\xA9"));
    ucs2string_formatter field;
    field.append_formatted(7L, 3, ucs2string_formatter::align_right, '0');
    std::cout << text << ' ' << field.str() << '\n';
    return text.length() == 4 && field.length() == 3 ? 0 : 1;
}
