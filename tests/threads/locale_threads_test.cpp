// Locale handles and facet look-ups shared across threads. Built on its own
// under ThreadSanitizer (scripts/test.sh --tsan), which reports any count
// changed without the locale lock and any id numbered twice.
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>
#include <vector>

#include "kai18n/facets/lu_ctype.h"
#include "kai18n/locale/lu_locale.h"
#include "locale/test_facets.h"

using test_facets::Probe;

namespace {

constexpr int kThreads = 8;

// Runs `work(thread number)` on kThreads threads released together.
template <class Work>
void RunTogether(Work work) {
    std::atomic<bool> go{false};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&go, &work, t] {
            while (!go.load()) std::this_thread::yield();
            work(t);
        });
    }
    go = true;
    for (std::thread& thread : threads) thread.join();
}

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
