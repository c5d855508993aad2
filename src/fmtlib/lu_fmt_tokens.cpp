#include "kai18n/fmtlib/lu_fmt_tokens.h"

#include <new>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

namespace FmtLib {
namespace {

class luEnumToken final : public luToken {
  public:
    explicit luEnumToken(luFmtTokens token) : m_token(token) {}
    int TokenId() const override { return m_token; }
    bool IsLiteral() const override { return false; }
    const unsigned short* LiteralText() const override { return nullptr; }
    unsigned int LiteralLength() const override { return 0; }

  private:
    std::int32_t m_token;
};

class luLiteralToken final : public luToken {
  public:
    explicit luLiteralToken(const ucs2string& text) : m_text(text) {}
    luLiteralToken(const unsigned short* first, const unsigned short* last)
        : m_text(first, static_cast<unsigned int>(last - first)) {}
    int TokenId() const override { return TokLiteral; }
    bool IsLiteral() const override { return true; }
    const unsigned short* LiteralText() const override { return m_text.c_str(); }
    unsigned int LiteralLength() const override { return m_text.length(); }

  private:
    ucs2string m_text;
};

// Builds a token, turning a failed allocation (of the object or of its text)
// into null.
template <class Token, class... Args>
luToken* NewToken(const Args&... args) {
    try {
        return new Token(args...);
    } catch (const std::bad_alloc&) {
        return nullptr;
    } catch (const LUException& e) {
        if (e.GetResult() == LU_E_OUT_OF_MEMORY) return nullptr;
        throw;
    }
}

}  // namespace

luToken::~luToken() = default;

luToken* luToken::MakeToken(luFmtTokens token) {
    return NewToken<luEnumToken>(token);
}

luToken* luToken::MakeToken(const ucs2string& text) {
    return NewToken<luLiteralToken>(text);
}

luToken* luToken::MakeToken(const unsigned short* first, const unsigned short* last) {
    return NewToken<luLiteralToken>(first, last);
}

luToken* luToken::Clone(const luToken& token) {
    if (token.IsLiteral())
        return MakeToken(token.LiteralText(), token.LiteralText() + token.LiteralLength());
    return MakeToken(static_cast<luFmtTokens>(token.TokenId()));
}

}  // namespace FmtLib
