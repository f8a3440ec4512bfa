// The library-file reader (also the current-playlist file's) on arbitrary
// file bytes. Whatever it loads must survive the writer: reading back what
// was written and writing again gives the same bytes.

#include <cstdlib>
#include <string>

#include "fuzz/fuzz_seeds.h"
#include "library/library_file.h"
#include "bytes/memory_file.h"

namespace {

using namespace zelvor;

constexpr std::u16string_view kBase = u"\\Flash Disk\\Music";

std::vector<std::byte> Rewrite(std::span<const std::byte> bytes) {
    MemoryFile file(bytes);
    TrackList list;
    ReadTrackList(file, kBase, list);
    MemorySink sink;
    if (!WriteTrackList(list, sink))
        std::abort();
    return sink.Bytes();
}

std::unique_ptr<TrackRecord> Record(std::u16string_view path, std::u16string_view title,
                                    std::int64_t seconds) {
    auto record = std::make_unique<TrackRecord>();
    record->SetField(kFieldPath, path);
    record->SetField(kFieldTitle, title);
    record->SetField(kFieldArtist, u"Artist");
    record->SetField(kFieldDuration, seconds);
    record->SetField(kFieldTrackNumber, std::int64_t{3});
    return record;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::byte> once = Rewrite(std::as_bytes(std::span(data, size)));
    if (Rewrite(once) != once)
        std::abort();
    return 0;
}

std::vector<FuzzInput> MakeFuzzSeeds() {
    TrackList list;
    list.AddTrack(Record(u"\\Flash Disk\\Music\\a.mp3", u"First", 61));
    list.AddTrack(Record(u"relative\\b.wma", std::u16string(300, u'x'), 0));
    list.AddTrack(Record(u"\\c.m4a", u"\U0001F3B5 note", 4000000));
    std::vector<FuzzInput> seeds;
    for (int count = 0; count <= list.Count(); ++count) {
        TrackList part;
        for (int i = 0; i < count; ++i)
            part.AddTrack(std::make_unique<TrackRecord>(*list.TrackAt(i)));
        MemorySink sink;
        WriteTrackList(part, sink);
        seeds.push_back(FuzzBytes(sink.Bytes()));
    }
    return seeds;
}
