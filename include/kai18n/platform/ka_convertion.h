// kaConvertion: a converter between UTF-16 and any encoding that the platform
// knows by name, for the encodings that the encoding library does not serve.
// Names are matched as the platform's converter registry matches them:
// without regard to case or punctuation ("windows-1252", "cp1252",
// "KOI8-R" all work).
#ifndef KAI18N_PLATFORM_KA_CONVERTION_H
#define KAI18N_PLATFORM_KA_CONVERTION_H

#include <string>

class kaConvertion {
  public:
    /// A converter for the encoding `name`; the name is only stored here, and
    /// a null name is stored as empty. An unknown name fails at conversion.
    explicit kaConvertion(const char* name);
    kaConvertion(const kaConvertion& other);
    kaConvertion& operator=(const kaConvertion& other);
    ~kaConvertion();

    /// Whether the platform can convert `name`; false for a null or empty
    /// name. Never throws.
    static bool IsSupported(const char* name);

    /// Converts the bytes [first, last) to UTF-16 and gives the number of
    /// units of the whole result. Writes at most `capacity` units to
    /// `target`, and a zero unit after them when there is room; with a null
    /// target writes nothing and only measures. Malformed input becomes U+FFFD (or the encoding's
    /// own substitute). Throws EncodingNotLoaded for a name that cannot be opened, bt_out_of_range
    /// for a reversed range, a negative capacity or a text of 2 GiB or more,
    /// UnicodeLibraryException for any other failure.
    long toUnicode(const char* first, const char* last, unsigned short* target,
                   long capacity) const;
    /// Converts the units [first, last) to the encoding and gives the number
    /// of bytes of the whole result; as toUnicode. A character that the
    /// encoding lacks becomes its substitution character.
    long fromUnicode(const unsigned short* first, const unsigned short* last, char* target,
                     long capacity) const;

    const std::string& GetName() const { return m_name; }

  private:
    std::string m_name;
};

/// An encoding as an abstract object: an interface with no data, which
/// nothing in the library implements.
class kaEncoding {
  public:
    kaEncoding();
    kaEncoding(const kaEncoding& other);
    virtual ~kaEncoding();
    kaEncoding& operator=(const kaEncoding& other);

    /// As kaConvertion::toUnicode.
    virtual long toUnicode(const char* first, const char* last, unsigned short* target,
                           long capacity) const = 0;
    /// As kaConvertion::fromUnicode.
    virtual long fromUnicode(const unsigned short* first, const unsigned short* last, char* target,
                             long capacity) const = 0;
};

#endif  // KAI18N_PLATFORM_KA_CONVERTION_H
