// The cache of Velora date definitions, filled from several threads at once.
#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/fmtlib/lu_string_format.h"

using namespace FmtLib;

namespace {

// Every thread asks for the same few triples, which no one has asked for
// before; each triple must be built once, so all threads see one pointer.
TEST(VeloraCacheThreadsTest, ThreadsAskingForOneTripleShareOneDefinition) {
    const struct {
        const char* code;
        const char* lang;
        const char* country;
    } triples[] = {
        {"IT", "it", "IT"}, {"PL", "pl", nullptr}, {"DA", "da", "DK"}, {"NL", "nl", "NL"}};
    constexpr int kThreads = 8;
    std::vector<std::array<const luTokensDefinition*, 4>> seen(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int round = 0; round < 50; ++round)
                for (int i = 0; i < 4; ++i) {
                    const int k = (i + t) % 4;  // threads start on different triples
                    seen[t][k] = GetVeloraDateTokensDefinition(triples[k].code, triples[k].lang,
                                                               triples[k].country);
                }
            // A string format built on the shared definition parses alike.
            std::unique_ptr<luStringFormatDate> format(
                CreateVeloraStringFormatDate(triples[t % 4].code, "xx", nullptr));
            luFmtPattern* pattern = nullptr;
            format->ToPattern(ucs2string(reinterpret_cast<const unsigned char*>("mm")), pattern);
            delete pattern;
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (int i = 0; i < 4; ++i) {
        ASSERT_NE(nullptr, seen[0][i]);
        for (int t = 1; t < kThreads; ++t) EXPECT_EQ(seen[0][i], seen[t][i]) << t << ' ' << i;
    }
}

}  // namespace
