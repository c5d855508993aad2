// State shared across threads: calendars on one zone, calendar-time values while the default zone
// changes, locale handles, facet ids, the catalog's locales by name and the cache of Velora
// definitions. Every thread must give the answers of a single thread, and nothing may tear.
// Built on its own under ThreadSanitizer (scripts/test.sh --tsan), which reports any count
// changed without the locale lock, any id numbered twice, and the two locks taken in different
// orders.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/predefined_time_zones.h"
#include "locale/locale_lock.h"
#include "locale/test_facets.h"
#include "test_support.h"

namespace {

using namespace TimeLib;
using test_facets::Probe;
using test_support::Str;
using Answers = std::vector<long long>;

constexpr int kThreads = 8;

// Runs `work(thread number)` on kThreads threads released together. A run that has not ended
// within `limit` is taken for a deadlock: the threads cannot be joined then, so the process ends.
template <class Work>
void RunTogether(Work work, std::chrono::seconds limit = std::chrono::seconds(300)) {
    std::atomic<bool> go{false};
    std::atomic<int> finished{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&go, &finished, &work, t] {
            while (!go.load()) std::this_thread::yield();
            work(t);
            ++finished;
        });
    }
    go = true;
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (finished.load() < kThreads) {
        if (std::chrono::steady_clock::now() > deadline) {
            std::fprintf(stderr, "the threads did not finish: a deadlock\n");
            std::abort();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    for (std::thread& thread : threads) thread.join();
}

// `work` gives the same answers in kThreads threads at once as in one.
template <class Work>
void ExpectAnswersOfOneThread(Work work) {
    const Answers alone = work();
    std::vector<Answers> seen(kThreads);
    RunTogether([&](int t) { seen[t] = work(); });
    for (const Answers& answers : seen) EXPECT_EQ(alone, answers);
}

TEST(CalendarThreadsTest, IndependentCalendarsOnOneZoneAgreeWithOneThread) {
    UErrorCode status = UErrorNone;
    const SimpleTimeZone zone(3600000, Str(u"Europe/Test"), 2, -1, 1, 3600000,
                              SimpleTimeZone::UTC_TIME, 9, -1, 1, 3600000, SimpleTimeZone::UTC_TIME,
                              3600000, status);
    ASSERT_EQ(UErrorNone, status);
    ExpectAnswersOfOneThread([&zone] {
        Answers out;
        UErrorCode st = UErrorNone;
        std::unique_ptr<Calendar> cal(Calendar::createInstance(zone, st));
        std::mt19937_64 rng(8);
        for (int i = 0; i < 2000; ++i) {
            const double t = double(std::int64_t(rng() % 40000000000000) - 20000000000000);
            cal->setTime(t, st);
            for (int f = 0; f < Calendar::kFieldCount; ++f)
                out.push_back(cal->get(Calendar::EDateFields(f), st));
            cal->add(Calendar::MONTH, 1, st), cal->roll(Calendar::WEEK_OF_YEAR, 3, st);
            out.push_back(std::int64_t(cal->getTime(st)) + zone.inDaylightTime(t, st));
        }
        EXPECT_EQ(UErrorNone, st);
        return out;
    });
}

TEST(CalendarTimeThreadsTest, ValuesAgreeWithOneThreadWhileTheDefaultZoneChanges) {
    const SimpleTimeZone first(3600000, Str(u"First")), second(-18000000, Str(u"Second"));
    const char16_t* const zones[] = {u"Europe/Paris", u"America/New_York", u"Australia/Sydney",
                                     u"Asia/Tokyo",   u"Pacific/Chatham",  u"America/Sao_Paulo"};
    TimeZone::setDefault(first);
    std::atomic<bool> done(false);
    std::thread swapper([&] {
        for (bool flip = false; !done; flip = !flip) TimeZone::setDefault(flip ? first : second);
    });
    ExpectAnswersOfOneThread([&zones] {
        Answers out;
        std::mt19937_64 rng(5);
        const luTimeBelt& belt = PredefinedTimeZones::timeBelt();
        for (int i = 0; i < 1500; ++i) {
            const double ms = static_cast<double>(static_cast<long long>(rng() % 4000000000000ULL));
            luCalendarTime t(luPhysicalTime::Epoch + luDuration::Millisecond * ms,
                             belt.availableTimeZone(Str(zones[i % 6])));
            t.add(Month, 1);
            out.push_back(t.year() * 10000LL + t.month() * 100 + t.day_of_month());
            out.push_back(t.hour_of_day() * 100LL + t.dst_offset() / 60000);
            // The host's zone is whichever default is in place: one of the two offsets.
            const int offset = luCalendarTime(luTimeZone::localHost()).zone_offset();
            out.push_back(offset == 3600000 || offset == -18000000 ? 1 : offset);
        }
        return out;
    });
    done = true;
    swapper.join();
}

// Every thread asks for the same few triples, which no one has asked for before; each triple must
// be built once, so all threads see one pointer.
TEST(VeloraCacheThreadsTest, ThreadsAskingForOneTripleShareOneDefinition) {
    const char* const triples[][3] = {
        {"IT", "it", "IT"}, {"PL", "pl", nullptr}, {"DA", "da", "DK"}, {"NL", "nl", "NL"}};
    std::vector<std::array<const FmtLib::luTokensDefinition*, 4>> seen(kThreads);
    RunTogether([&](int t) {
        for (int round = 0; round < 50; ++round)
            for (int i = 0; i < 4; ++i) {
                const int k = (i + t) % 4;  // threads start on different triples
                seen[t][k] = FmtLib::GetVeloraDateTokensDefinition(triples[k][0], triples[k][1],
                                                                   triples[k][2]);
            }
        // A string format built on the shared definition parses alike.
        std::unique_ptr<FmtLib::luStringFormatDate> format(
            FmtLib::CreateVeloraStringFormatDate(triples[t % 4][0], "xx", nullptr));
        FmtLib::luFmtPattern* pattern = nullptr;
        format->ToPattern(ucs2string(reinterpret_cast<const unsigned char*>("mm")), pattern);
        delete pattern;
    });
    for (int i = 0; i < 4; ++i) {
        ASSERT_NE(nullptr, seen[0][i]);
        for (int t = 1; t < kThreads; ++t) EXPECT_EQ(seen[0][i], seen[t][i]) << t << ' ' << i;
    }
}

constexpr int kRounds = 200;
const char* const kNames[] = {"de_DE",       "en_US", "C",  "de_DE.CP1252",
                              "en_US.UTF-8", "POSIX", "de", "US"};
constexpr int kNameCount = sizeof(kNames) / sizeof(kNames[0]);

}  // namespace

TEST(LocaleThreadsTest, HandleCopiesAndLookUpsFromManyThreads) {
    auto* impl = new lu_locale::_Impl(1, 0);
    impl->_M_install_facet(&lu_ctype::id, new lu_ctype(0));
    const lu_locale shared(impl);
    std::atomic<int> wrong{0};

    RunTogether([&](int) {
        lu_locale mine(shared);
        for (int i = 0; i < 20000; ++i) {
            lu_locale copy(shared);
            mine = copy;
            if (lu_use_facet<lu_ctype>(mine).toupper(u'a') != u'A') ++wrong;
        }
    });

    EXPECT_EQ(0, wrong.load());
    EXPECT_EQ(1u, impl->GetReferenceCount());
}

TEST(LocaleThreadsTest, OneNumberForAnIdInstalledFromManyThreadsAtOnce) {
    std::vector<unsigned int> seen(kThreads);
    RunTogether([&](int t) {
        lu_locale own(new lu_locale::_Impl(1, 0));
        own._M_get_impl()->_M_install_facet(&Probe<100>::id, new Probe<100>);
        seen[t] = Probe<100>::id.value();
        // The facet is found under the number the id settled on.
        if (lu_use_facet<Probe<100>>(own).GetReferenceCount() != 1) seen[t] = 0;
    });
    for (unsigned int number : seen) EXPECT_EQ(Probe<100>::id.value(), number);
    EXPECT_NE(0u, Probe<100>::id.value());
}

TEST(LocaleThreadsTest, DifferentIdsGetDifferentNumbersAcrossThreads) {
    lu_locale::id* ids[kThreads] = {&Probe<201>::id, &Probe<202>::id, &Probe<203>::id,
                                    &Probe<204>::id, &Probe<205>::id, &Probe<206>::id,
                                    &Probe<207>::id, &Probe<208>::id};
    RunTogether([&](int t) { ids[t]->assign_if_unset(); });
    std::set<unsigned int> numbers;
    for (const lu_locale::id* id : ids) numbers.insert(id->value());
    EXPECT_EQ(static_cast<size_t>(kThreads), numbers.size());
    EXPECT_EQ(0u, numbers.count(0));
}

TEST(LocaleThreadsTest, ClassicAndGlobalFromManyThreadsAtOnce) {
    std::vector<const lu_locale::_Impl*> seen(kThreads);
    RunTogether([&](int t) {
        const lu_locale classic = lu_locale::classic();
        seen[t] = classic._M_get_impl();
        for (int i = 0; i < 2000; ++i) {
            const lu_locale global;
            if (lu_use_facet<lu_ctype>(global).toupper(u'q') != u'Q') seen[t] = nullptr;
        }
    });
    for (const lu_locale::_Impl* impl : seen) EXPECT_EQ(lu_locale::classic()._M_get_impl(), impl);
}

TEST(CatalogThreadsTest, LocalesByNameAndTheirCopiesFromManyThreads) {
    // A new catalog, so that the threads race for the module's first load too.
    lu_locale_catalog::ClearInstance();
    std::vector<std::vector<const lu_locale::_Impl*>> seen(
        kThreads, std::vector<const lu_locale::_Impl*>(kNameCount, nullptr));
    std::atomic<int> failures{0};
    RunTogether([&](int t) {
        std::vector<lu_locale> kept;
        for (int round = 0; round < kRounds; ++round) {
            const int index = (round + t) % kNameCount;
            try {
                const lu_locale byName(kNames[index]);
                lu_locale copy(byName);
                kept.push_back(copy);
                copy = lu_locale::classic();
                copy = byName;
                const unsigned short point = lu_use_facet<lu_numpunct>(copy).decimal_point();
                if (point != u'.' && point != u',') ++failures;
                if (seen[t][index] == nullptr) seen[t][index] = byName._M_get_impl();
                if (seen[t][index] != byName._M_get_impl()) ++failures;
            } catch (...) {
                ++failures;
            }
            if (kept.size() > 16) kept.erase(kept.begin(), kept.begin() + 8);
        }
    });
    EXPECT_EQ(0, failures.load());
    // Every thread got one body for each name.
    for (int index = 0; index < kNameCount; ++index) {
        for (int t = 1; t < kThreads; ++t) EXPECT_EQ(seen[0][index], seen[t][index]);
    }
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), seen[0][2]);
}

TEST(CatalogThreadsTest, CatalogLookUpsBesideHandleCopiesOfTheSameLocale) {
    const lu_locale shared("de_DE");
    std::atomic<int> failures{0};
    RunTogether([&](int t) {
        lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();
        for (int round = 0; round < kRounds; ++round) {
            if (t % 2 == 0) {
                // Copies of a handle, counted under the locale lock ...
                const lu_locale copy(shared);
                if (lu_use_facet<lu_numpunct>(copy).decimal_point() != u',') ++failures;
            } else {
                // ... beside the catalog handing the same body out by name.
                std::vector<unsigned int> ids;
                if (catalog->QueryMatchingLocales("de_DE", ids, true) < 0 || ids.empty()) {
                    ++failures;
                    continue;
                }
                if (catalog->GetStorage(ids.front()) == nullptr) ++failures;
                const lu_locale byName("de_DE");
                if (byName._M_get_impl() != shared._M_get_impl()) ++failures;
            }
        }
    });
    EXPECT_EQ(0, failures.load());
}

TEST(CatalogThreadsTest, TheCatalogLockIsAlwaysTakenBeforeTheLocaleLock) {
    // A new catalog, so that building the bodies keeps the catalog lock busy.
    lu_locale_catalog::ClearInstance();
    std::vector<unsigned int> ids;
    ASSERT_EQ(LU_S_OK,
              lu_locale_catalog::GetInstance()->QueryMatchingLocales("en", "", "", "", ids, false));
    std::atomic<int> builders{kThreads / 2};
    std::atomic<int> failures{0};
    RunTogether(
        [&](int t) {
            lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();
            if (t % 2 == 0) {
                // Handles by name, for as long as bodies are built: the catalog
                // first, the handle's count afterwards.
                for (int round = 0; builders.load() > 0 || round < kRounds; ++round) {
                    const lu_locale byName(kNames[round % kNameCount]);
                    if (byName._M_get_impl() == nullptr) ++failures;
                }
                return;
            }
            // The catalog's bodies, whose counts the catalog takes under the locale
            // lock while it holds its own; given back under the locale lock.
            for (size_t i = 0; i < ids.size(); ++i) {
                ilu_ptr<lu_locale::_Impl> body =
                    catalog->GetLocaleInstance(ids[(i + static_cast<size_t>(t)) % ids.size()]);
                if (!body->named()) ++failures;
                lu_locale_lock_guard guard;
                body = static_cast<lu_locale::_Impl*>(nullptr);
            }
            --builders;
        },
        std::chrono::seconds(60));
    EXPECT_EQ(0, failures.load());
}
