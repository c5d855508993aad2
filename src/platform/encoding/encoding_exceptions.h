// The exceptions that the encoding library throws. The library never lets them
// reach a caller: kaTranslateEncodingException turns each into an LUException.
#ifndef KAI18N_PLATFORM_ENCODING_ENCODING_EXCEPTIONS_H
#define KAI18N_PLATFORM_ENCODING_ENCODING_EXCEPTIONS_H

#include <stdexcept>
#include <string>

/// Base of every exception of the encoding library.
class bt_exception : public std::runtime_error {
  public:
    explicit bt_exception(const std::string& what) : std::runtime_error(what) {}
};

/// An index or a range given to the encoding library is out of bounds.
class bt_out_of_range : public bt_exception {
  public:
    explicit bt_out_of_range(const std::string& what) : bt_exception(what) {}
};

/// A failure of the Unicode services under the encoding library.
class UnicodeLibraryException : public bt_exception {
  public:
    explicit UnicodeLibraryException(const std::string& what) : bt_exception(what) {}
};

/// The requested output encoding cannot be written.
class InvalidOutputEncoding : public UnicodeLibraryException {
  public:
    explicit InvalidOutputEncoding(const std::string& what) : UnicodeLibraryException(what) {}
};

/// The tables of an encoding could not be loaded.
class EncodingNotLoaded : public UnicodeLibraryException {
  public:
    explicit EncodingNotLoaded(const std::string& what) : UnicodeLibraryException(what) {}
};

/// Identifies an encoding by name and its variations.
struct TextEncodingID {
    class Malformed : public UnicodeLibraryException {
      public:
        explicit Malformed(const std::string& what) : UnicodeLibraryException(what) {}
    };
    class TooManyVariations : public UnicodeLibraryException {
      public:
        explicit TooManyVariations(const std::string& what) : UnicodeLibraryException(what) {}
    };
};

/// Identifies one variation of an encoding.
struct EncodingVariationID {
    class Malformed : public UnicodeLibraryException {
      public:
        explicit Malformed(const std::string& what) : UnicodeLibraryException(what) {}
    };
    class TooManyVariations : public UnicodeLibraryException {
      public:
        explicit TooManyVariations(const std::string& what) : UnicodeLibraryException(what) {}
    };
};

#endif  // KAI18N_PLATFORM_ENCODING_ENCODING_EXCEPTIONS_H
