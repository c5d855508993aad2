// Locales by name from many threads at once: the catalog's look-ups, the
// loading of the data module, and the counts of the shared bodies. Under
// ThreadSanitizer this shows that every count changes under the locale lock
// and that the two locks are taken in one order.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "locale/locale_lock.h"

namespace {

constexpr int kThreadCount = 8;
constexpr int kRounds = 200;

const char* const kNames[] = {"de_DE",       "en_US", "C",  "de_DE.CP1252",
                              "en_US.UTF-8", "POSIX", "de", "US"};
constexpr int kNameCount = sizeof(kNames) / sizeof(kNames[0]);

template <class Work>
void RunAllAtOnce(Work work) {
    std::atomic<bool> go{false};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreadCount; ++t) {
        threads.emplace_back([&go, &work, t] {
            while (!go.load()) std::this_thread::yield();
            work(t);
        });
    }
    go = true;
    for (std::thread& thread : threads) thread.join();
}

// As RunAllAtOnce, but a run that has not ended within `limit` is taken for a
// deadlock: the threads cannot be joined then, so the process ends at once.
template <class Work>
void RunAllAtOnceOrAbort(std::chrono::seconds limit, Work work) {
    std::atomic<bool> go{false};
    std::atomic<int> finished{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreadCount; ++t) {
        threads.emplace_back([&go, &finished, &work, t] {
            while (!go.load()) std::this_thread::yield();
            work(t);
            ++finished;
        });
    }
    go = true;
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (finished.load() < kThreadCount) {
        if (std::chrono::steady_clock::now() > deadline) {
            std::fprintf(stderr, "the threads did not finish: a deadlock between the locks\n");
            std::abort();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace

TEST(CatalogThreadsTest, LocalesByNameAndTheirCopiesFromManyThreads) {
    // A new catalog, so that the threads race for the module's first load too.
    lu_locale_catalog::ClearInstance();
    std::vector<std::vector<const lu_locale::_Impl*>> seen(
        kThreadCount, std::vector<const lu_locale::_Impl*>(kNameCount, nullptr));
    std::atomic<int> failures{0};
    RunAllAtOnce([&](int t) {
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
        for (int t = 1; t < kThreadCount; ++t) EXPECT_EQ(seen[0][index], seen[t][index]);
    }
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), seen[0][2]);
}

TEST(CatalogThreadsTest, CatalogLookUpsBesideHandleCopiesOfTheSameLocale) {
    const lu_locale shared("de_DE");
    std::atomic<int> failures{0};
    RunAllAtOnce([&](int t) {
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
    std::atomic<int> builders{kThreadCount / 2};
    std::atomic<int> failures{0};
    RunAllAtOnceOrAbort(std::chrono::seconds(60), [&](int t) {
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
    });
    EXPECT_EQ(0, failures.load());
}
