// The exceptions that the encoding library throws. The library never lets them
// reach a caller: kaTranslateEncodingException turns each into an LUException.
#ifndef KAI18N_PLATFORM_ENCODING_ENCODING_EXCEPTIONS_H
#define KAI18N_PLATFORM_ENCODING_ENCODING_EXCEPTIONS_H

#include <stdexcept>

/// Base of every exception of the encoding library.
class bt_exception : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// An index or a range given to the encoding library is out of bounds.
class bt_out_of_range : public bt_exception {
  public:
    using bt_exception::bt_exception;
};

/// A failure of the Unicode services under the encoding library.
class UnicodeLibraryException : public bt_exception {
  public:
    using bt_exception::bt_exception;
};

/// The requested output encoding cannot be written.
class InvalidOutputEncoding : public UnicodeLibraryException {
  public:
    using UnicodeLibraryException::UnicodeLibraryException;
};

/// The tables of an encoding could not be loaded.
class EncodingNotLoaded : public UnicodeLibraryException {
  public:
    using UnicodeLibraryException::UnicodeLibraryException;
};

/// Identifies an encoding by name and its variations.
struct TextEncodingID {
    class Malformed : public UnicodeLibraryException {
      public:
        using UnicodeLibraryException::UnicodeLibraryException;
    };
    class TooManyVariations : public UnicodeLibraryException {
      public:
        using UnicodeLibraryException::UnicodeLibraryException;
    };
};

/// Identifies one variation of an encoding.
struct EncodingVariationID {
    class Malformed : public UnicodeLibraryException {
      public:
        using UnicodeLibraryException::UnicodeLibraryException;
    };
    class TooManyVariations : public UnicodeLibraryException {
      public:
        using UnicodeLibraryException::UnicodeLibraryException;
    };
};

#endif  // KAI18N_PLATFORM_ENCODING_ENCODING_EXCEPTIONS_H
