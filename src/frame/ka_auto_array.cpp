#include "kai18n/frame/ka_auto_array.h"

// The instantiations that the library exports.
template class kaAutoArray<unsigned char>;
template class kaAutoArray<unsigned short>;
template class kaAutoArray<unsigned int>;
