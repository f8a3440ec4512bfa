// The registry hive parser on arbitrary file bytes. A hive it accepts must
// come back the same after being written and parsed again.

#include <cstdlib>

#include "fuzz/fuzz_seeds.h"
#include "platform/registry_store.h"
#include "platform/text.h"

namespace {

using namespace zelvor;

constexpr auto kRoot = RegistryRoot::CurrentUser;

// Never flushed: every hive is read from memory and stays clean.
RegistryStore& Store() {
    static RegistryStore store("/nonexistent/zelvor-fuzz-hives");
    return store;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    RegistryStore& store = Store();
    if (!store.ReadHiveImage(kRoot, std::as_bytes(std::span(data, size))))
        return 0;
    const std::vector<std::byte> written = store.HiveImage(kRoot);
    if (!store.ReadHiveImage(kRoot, written) || store.HiveImage(kRoot) != written)
        std::abort();
    return 0;
}

std::vector<FuzzInput> MakeFuzzSeeds() {
    RegistryStore& store = Store();
    store.ReadHiveImage(kRoot, {});
    store.SetDword(kRoot, u"Software\\Zelvor", u"Volume", 0x1F);
    store.SetString(kRoot, u"Software\\Zelvor", u"Folder", u"\\Flash Disk\\\"Music\"");
    store.SetString(kRoot, u"Software\\Zelvor\\Keys", u"", u"default");
    store.SetString(kRoot, u"Software\\Zelvor\\Keys", u"Lines", u"two\r\nlines");
    std::vector<FuzzInput> seeds{FuzzBytes(store.HiveImage(kRoot))};
    seeds.push_back(FuzzBytes("\xEF\xBB\xBFREGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n"
                              "\"Raw\"=hex:01,02,\\\r\n  03\r\n\"Gone\"=-\r\n[-HKEY_CURRENT_USER\\B]\r\n"
                              "; a comment\r\n@=dword:0000000A\r\n"));
    store.ReadHiveImage(kRoot, {});
    return seeds;
}
