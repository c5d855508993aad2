#include "kai18n/fmtlib/lu_fmt_pattern.h"

#include <memory>
#include <new>
#include <vector>

namespace FmtLib {
namespace {

// A token that could not be made means memory ran out.
luToken* Checked(luToken* token) {
    if (token == nullptr) throw std::bad_alloc();
    return token;
}

class luFmtPatternImp final : public luFmtPattern {
  public:
    explicit luFmtPatternImp(bool isDate) : m_isDate(isDate) {}
    ~luFmtPatternImp() override { Clear(); }

    iterator begin() override { return m_tokens.data(); }
    const_iterator begin() const override { return m_tokens.data(); }
    iterator end() override { return m_tokens.data() + m_tokens.size(); }
    const_iterator end() const override { return m_tokens.data() + m_tokens.size(); }
    luToken* operator[](int i) const override { return m_tokens[i]; }

    luFmtPattern& operator=(const luFmtPattern& source) override {
        if (&source == this) return *this;
        Clear();
        if (source.IsDate() == m_isDate) {
            m_tokens.reserve(source.size());
            for (const luToken* token : source) Append(luToken::Clone(*token));
        }
        return *this;
    }

    void push_back(const luToken* token) override { Append(luToken::Clone(*token)); }

    iterator insert(iterator position, const luToken* token) override {
        const auto index = position - begin();
        std::unique_ptr<luToken> clone(Checked(luToken::Clone(*token)));
        m_tokens.insert(m_tokens.begin() + index, clone.get());
        clone.release();
        return begin() + index;
    }

    iterator erase(iterator first, iterator last) override {
        const auto index = first - begin();
        for (iterator it = first; it != last; ++it) delete *it;
        m_tokens.erase(m_tokens.begin() + index, m_tokens.begin() + (last - begin()));
        return begin() + index;
    }

    iterator erase(iterator position) override { return erase(position, position + 1); }

    unsigned int size() const override { return static_cast<unsigned int>(m_tokens.size()); }

    void push_back(luFmtTokens token) override { Append(luToken::MakeToken(token)); }
    void push_back(const ucs2string& text) override { Append(luToken::MakeToken(text)); }
    void push_back(const unsigned short* first, const unsigned short* last) override {
        Append(luToken::MakeToken(first, last));
    }

    bool IsDate() const override { return m_isDate; }

  private:
    // Takes ownership of a fresh token; deletes it if the vector cannot grow.
    void Append(luToken* token) {
        std::unique_ptr<luToken> owned(Checked(token));
        m_tokens.push_back(owned.get());
        owned.release();
    }

    void Clear() {
        for (luToken* token : m_tokens) delete token;
        m_tokens.clear();
        m_tokens.shrink_to_fit();
    }

    std::vector<luToken*> m_tokens;
    bool m_isDate;
};

luFmtPattern* NewPattern(bool isDate) {
    return new (std::nothrow) luFmtPatternImp(isDate);
}

}  // namespace

luFmtPattern::~luFmtPattern() = default;

luFmtPattern* CreateDateFmtPattern() {
    return NewPattern(true);
}

luFmtPattern* CreateNumberFmtPattern() {
    return NewPattern(false);
}

luFmtPattern* CreateFmtPattern(const luFmtPattern& source) {
    std::unique_ptr<luFmtPattern> copy(NewPattern(source.IsDate()));
    if (copy == nullptr) return nullptr;
    try {
        *copy = source;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return copy.release();
}

}  // namespace FmtLib
