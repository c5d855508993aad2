// Facet classes for tests of the locale mechanism, each recording its destruction.
#ifndef KAI18N_TESTS_LOCALE_TEST_FACETS_H
#define KAI18N_TESTS_LOCALE_TEST_FACETS_H

#include "kai18n/locale/lu_locale.h"

namespace test_facets {

// `Tag` makes each instantiation a facet class with an id of its own.
template <int Tag>
class Probe : public lu_locale::facet {
  public:
    static inline lu_locale::id id;
    explicit Probe(bool* destroyed = nullptr) : lu_locale::facet(0), m_destroyed(destroyed) {}

  protected:
    ~Probe() override {
        if (m_destroyed != nullptr) *m_destroyed = true;
    }

  private:
    bool* m_destroyed;
};

}  // namespace test_facets

#endif  // KAI18N_TESTS_LOCALE_TEST_FACETS_H
