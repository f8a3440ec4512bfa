// The playlist-file reader on arbitrary file bytes. What it loads, once
// written and read back, must read back the same again.

#include <cstdlib>
#include <string>

#include "fuzz/fuzz_seeds.h"
#include "playlists/playlist_file.h"
#include "bytes/memory_file.h"

namespace {

using namespace zelvor;

constexpr std::u16string_view kMusic = u"\\Flash Disk\\Music";

std::vector<std::u16string> Paths(const PlaylistEntryList& list) {
    std::vector<std::u16string> paths;
    for (int i = 0; i < list.Count(); ++i)
        paths.emplace_back(list.At(i)->Text(1));
    return paths;
}

// Writes the list and reads the result back into it.
void RoundTrip(PlaylistEntryList& list) {
    MemorySink sink;
    WritePlaylist(list, sink);
    list.RemoveAll(true);
    MemoryFile file(sink.Bytes());
    ReadPlaylist(file, kMusic, list);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryFile file(std::as_bytes(std::span(data, size)));
    PlaylistEntryList list;
    ReadPlaylist(file, kMusic, list);
    RoundTrip(list);
    const std::vector<std::u16string> settled = Paths(list);
    RoundTrip(list);
    if (Paths(list) != settled)
        std::abort();
    return 0;
}

std::vector<FuzzInput> MakeFuzzSeeds() {
    const std::u16string paths[] = {u"\\Flash Disk\\Music\\a.mp3", u"b\\c.wma",
                                    std::u16string(259, u'p'), u""};
    std::vector<FuzzInput> seeds;
    PlaylistEntryList list;
    for (const std::u16string& path : paths) {
        MemorySink sink;
        WritePlaylist(list, sink);
        seeds.push_back(FuzzBytes(sink.Bytes()));
        list.Insert(std::make_unique<PlaylistEntry>(path));
    }
    return seeds;
}
