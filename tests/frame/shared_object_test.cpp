#include <gtest/gtest.h>

#include <vector>

#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/init_exit.h"
#include "platform/os_thread_toolkit.h"

namespace {

// Records how it dies: how many destructor runs and the count seen inside.
class Probe : public iluSharedObject {
  public:
    explicit Probe(std::uint32_t refs, std::vector<std::uint32_t>* deaths)
        : iluSharedObject(refs), m_deaths(deaths) {}
    ~Probe() override {
        // Taking and dropping a temporary reference during destruction must
        // not delete the object a second time.
        { ilu_ptr<Probe> self(this); }
        m_deaths->push_back(GetReferenceCount());
    }

  private:
    std::vector<std::uint32_t>* m_deaths;
};

TEST(IluPtrTest, LastReleaseDestroysOnceWithCountOne) {
    std::vector<std::uint32_t> deaths;
    {
        ilu_ptr<Probe> a(new Probe(0, &deaths));
        EXPECT_EQ(a->GetReferenceCount(), 1u);
        {
            ilu_ptr<Probe> b(a);
            EXPECT_EQ(a->GetReferenceCount(), 2u);
            EXPECT_TRUE(a == b);
        }
        EXPECT_EQ(a->GetReferenceCount(), 1u);
        EXPECT_TRUE(deaths.empty());
    }
    EXPECT_EQ(deaths, std::vector<std::uint32_t>{1u});
}

TEST(IluPtrTest, AssignmentMovesTheReferenceAndSelfAssignmentDoesNothing) {
    std::vector<std::uint32_t> deaths;
    ilu_ptr<Probe> a(new Probe(0, &deaths));
    ilu_ptr<Probe>& alias = a;
    a = alias;
    a = a.get();
    EXPECT_EQ(a->GetReferenceCount(), 1u);
    ilu_ptr<Probe> b(new Probe(0, &deaths));
    a = b;
    EXPECT_EQ(deaths.size(), 1u);  // a's first object had no other owner
    EXPECT_EQ(b->GetReferenceCount(), 2u);
    a = nullptr;
    EXPECT_EQ(b->GetReferenceCount(), 1u);
    EXPECT_FALSE(a);
}

TEST(IluPtrTest, ObjectWithAnOwnerOutsideSmartPointersSurvives) {
    std::vector<std::uint32_t> deaths;
    // Owned by this test, not by a smart pointer: built with a count of 1.
    Probe* held = new Probe(1, &deaths);
    { ilu_const_ptr<Probe> p(held); }
    EXPECT_TRUE(deaths.empty());
    EXPECT_EQ(held->GetReferenceCount(), 1u);
    // A count of 2 can never reach 0 through balanced use.
    Probe* classic = new Probe(2, &deaths);
    {
        ilu_ptr<Probe> p(classic);
        ilu_const_ptr<Probe> q(p);
        EXPECT_EQ(classic->GetReferenceCount(), 4u);
    }
    EXPECT_EQ(classic->GetReferenceCount(), 2u);
    EXPECT_TRUE(deaths.empty());
    delete held;
    delete classic;
    EXPECT_EQ(deaths.size(), 2u);
}

// --- counting guards -----------------------------------------------------

std::vector<const char*> g_events;

class BaseServiceInitExit : public kaInitExitCounter<BaseServiceInitExit> {
  public:
    static int count;
    static void init() { g_events.push_back("base up"); }
    static void exit() { g_events.push_back("base down"); }
};
int BaseServiceInitExit::count = 0;

// A service that needs the base one holds a heap instance of its guard.
class DependentServiceInitExit : public kaInitExitCounter<DependentServiceInitExit> {
  public:
    static int count;
    static void init() {
        s_base = new BaseServiceInitExit;
        g_events.push_back("dependent up");
    }
    static void exit() {
        g_events.push_back("dependent down");
        delete s_base;
        s_base = nullptr;
    }

  private:
    static BaseServiceInitExit* s_base;
};
int DependentServiceInitExit::count = 0;
BaseServiceInitExit* DependentServiceInitExit::s_base = nullptr;

TEST(InitExitTest, OnlyTransitionsFromAndToZeroDoWork) {
    g_events.clear();
    {
        DependentServiceInitExit first;
        EXPECT_EQ(DependentServiceInitExit::count, 1);
        EXPECT_EQ(BaseServiceInitExit::count, 1);
        {
            BaseServiceInitExit second;  // a later client only raises the count
            DependentServiceInitExit third;
            EXPECT_EQ(BaseServiceInitExit::count, 2);
            EXPECT_EQ(DependentServiceInitExit::count, 2);
        }
        EXPECT_EQ(BaseServiceInitExit::count, 1);
    }
    EXPECT_EQ(BaseServiceInitExit::count, 0);
    EXPECT_EQ(DependentServiceInitExit::count, 0);
    const std::vector<std::string> expected = {"base up", "dependent up", "dependent down",
                                               "base down"};
    EXPECT_EQ(std::vector<std::string>(g_events.begin(), g_events.end()), expected);
}

TEST(ThreadToolkitTest, LocksAreReentrantAndStartCallsNest) {
    const int depth = os_thread_toolkit_depth();
    os_init_thread_toolkit();
    os_init_thread_toolkit();
    EXPECT_EQ(os_thread_toolkit_depth(), depth + 2);
    os_critical_section lock(false);
    lock.lock();
    lock.lock();  // the same thread takes it again without deadlock
    lock.unlock();
    lock.unlock();
    os_exit_thread_toolkit();
    os_exit_thread_toolkit();
    EXPECT_EQ(os_thread_toolkit_depth(), depth);

    kaRedirectCriticalErrorMessage quiet(kaRedirectCriticalErrorMessage::kQuiet);
    EXPECT_EQ(quiet.GetMode(), kaRedirectCriticalErrorMessage::kQuiet);
}

}  // namespace
