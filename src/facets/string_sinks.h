// Sinks that write a conversion straight into a string, block by block.
//
// Each holds the target and a write position that starts at 0. The write
// slot replaces everything from the position to the end of the target with
// the block and moves the position behind it: the first block drops what the
// target held, later blocks append. The flush slot empties the target if
// nothing was written, so an empty text gives an empty target.
#ifndef KAI18N_FACETS_STRING_SINKS_H
#define KAI18N_FACETS_STRING_SINKS_H

#include <string>

#include "kai18n/platform/char_encoding.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"

class Ucs2StringSink : public Char16Sink {
  public:
    explicit Ucs2StringSink(ucs2string& target) : Char16Sink(nullptr), m_target(&target) {}

    unsigned int Position() const { return m_position; }

  protected:
    void DoWrite(const unsigned short* block, long count) override;
    void DoFlush() override;

  private:
    ucs2string* m_target;
    unsigned int m_position = 0;
};

class Utf8StringSink : public CharSink {
  public:
    explicit Utf8StringSink(lu_utf8string& target) : CharSink(nullptr), m_target(&target) {}

    unsigned int Position() const { return m_position; }

  protected:
    void DoWrite(const char* block, long count) override;
    void DoFlush() override;

  private:
    lu_utf8string* m_target;
    unsigned int m_position = 0;
};

class NarrowStringSink : public CharSink {
  public:
    explicit NarrowStringSink(std::string& target) : CharSink(nullptr), m_target(&target) {}

    std::size_t Position() const { return m_position; }

  protected:
    void DoWrite(const char* block, long count) override;
    void DoFlush() override;

  private:
    std::string* m_target;
    std::size_t m_position = 0;
};

#endif  // KAI18N_FACETS_STRING_SINKS_H
