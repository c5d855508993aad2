// The records of the locale data module, as the module itself lists them.
#ifndef KAI18N_TESTS_MODULE_RECORDS_H
#define KAI18N_TESTS_MODULE_RECORDS_H

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_storage.h"
#include "platform/module_loader.h"

namespace kai18n_test {

// The records as the module lists them. The catalog loads the module first,
// so that the module is found where the catalog finds it.
inline std::vector<const lu_locale_storage*> ModuleRecords() {
    using Records = const lu_locale_storage* const* (*)(unsigned int*);
    EXPECT_NE(nullptr, lu_locale_catalog::GetInstance()->GetStorage(31000));
    const std::string path = kaLibraryDirectory() + "libkai18nloc.so";
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    EXPECT_NE(nullptr, module) << path;
    if (module == nullptr) return {};
    auto records = reinterpret_cast<Records>(dlsym(module, "kai18nloc_records"));
    std::vector<const lu_locale_storage*> result;
    if (records != nullptr) {
        unsigned int count = 0;
        const lu_locale_storage* const* first = records(&count);
        result.assign(first, first + count);
    }
    dlclose(module);
    return result;
}

}  // namespace kai18n_test

#endif  // KAI18N_TESTS_MODULE_RECORDS_H
