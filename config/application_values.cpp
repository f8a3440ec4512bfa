#include "config/application_values.h"

#include "config/local_text.h"

namespace zelvor {

ApplicationValues& AppValues() {
    static ApplicationValues values;
    return values;
}

std::u16string_view LoadAppText(std::uint16_t id) {
    return LoadLocalText(kLocalTextFileName, AppValues().language, id);
}

} // namespace zelvor
