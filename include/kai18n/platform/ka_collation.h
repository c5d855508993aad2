// The collation engine: a locale's tailored order of UTF-16 and UTF-8 text,
// and sort keys in that order.
//
// A kaCollation is one pointer to a shared, counted body that holds the
// collator. Copies share the body; the count is atomic, so copies may be
// made and destroyed on different threads. Every operation is const and may
// run on any number of threads at once, also on one shared body.
#ifndef KAI18N_PLATFORM_KA_COLLATION_H
#define KAI18N_PLATFORM_KA_COLLATION_H

#include <string>

class kaCollation {
  public:
    /// A collator for `locale`: a language, or a language, an underscore and
    /// a country ("de", "en_US", "sv_SE"). "i18n", the empty text and a null
    /// pointer give the root order, which holds for every language without a
    /// tailoring of its own; a name the engine does not know gives the root
    /// order as well. Throws LUException with LU_E_OUT_OF_MEMORY when memory
    /// runs out and LU_E_INTERNAL when the collation data cannot be loaded.
    explicit kaCollation(const char* locale = "en_US");
    /// Shares `other`'s collator.
    kaCollation(const kaCollation& other);
    /// Shares `other`'s collator and lets go of its own.
    kaCollation& operator=(const kaCollation& other);
    ~kaCollation();

    // Every operation on ranges throws LUException with LU_E_STRING_TOO_LONG
    // for a range of more than 2^31 - 1 units or bytes, LU_E_INVALID_ARG for a
    // range whose end comes before its start, and LU_E_INTERNAL or
    // LU_E_OUT_OF_MEMORY if the engine fails. An empty range may be given as
    // two null pointers.

    /// The order of [first1, last1) and [first2, last2): -1, 0 or 1.
    int CompareStrings(const unsigned short* first1, const unsigned short* last1,
                       const unsigned short* first2, const unsigned short* last2) const;
    /// The same on UTF-8 bytes; a malformed sequence orders as U+FFFD.
    int CompareStrings(const unsigned char* first1, const unsigned char* last1,
                       const unsigned char* first2, const unsigned char* last2) const;

    /// `key` becomes the sort key of [first, last): comparing two keys as
    /// strings of unsigned bytes (as std::string does) gives the order of
    /// CompareStrings. A key holds no zero byte.
    void BuildSortKey(std::string& key, const unsigned short* first,
                      const unsigned short* last) const;

    /// The locale whose rules the collator follows, "root" for the root order.
    std::string GetActualLocale() const;

  private:
    class Body;
    Body* m_body;
};

#endif  // KAI18N_PLATFORM_KA_COLLATION_H
