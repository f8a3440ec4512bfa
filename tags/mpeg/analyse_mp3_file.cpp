#include "tags/mpeg/analyse_mp3_file.h"

#include <array>

#include "platform/device.h"
#include "bytes/read_ahead_file.h"
#include "tags/mpeg/frame_sync.h"
#include "tags/mpeg/mpeg_header.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

constexpr std::size_t kId3v1Size = 128;
constexpr std::size_t kMp3ReadAhead = 4096;

// Steps 3-9: the stream fields of the header found.
void DecodeStream(Mp3FileInfo& info, const FrameSync& sync) {
    const std::uint32_t h = sync.header;
    info.version = MpegVersionOf(h);
    info.layer = MpegLayerOf(h);
    info.protection = static_cast<std::int32_t>((h >> 16) & 1);

    int tableRate = 0; // as the table gives it; 0 and -1 included
    int keptRate = 0;  // only a positive table value is kept
    if (info.layer != 0) {
        tableRate = MpegBitRate(info.version, info.layer, static_cast<int>((h >> 12) & 0xF));
        if (tableRate > 0)
            keptRate = tableRate;
    }
    if (info.version == kMpegVersionReserved)
        return; // no stream fields, no frame counted

    info.sampleRate = MpegSampleRate(info.version, static_cast<int>((h >> 10) & 3));
    info.channelMode = static_cast<std::int32_t>((h >> 6) & 3);
    info.copyright = static_cast<std::int32_t>((h >> 3) & 1);
    info.original = static_cast<std::int32_t>((h >> 2) & 1);
    info.emphasis = static_cast<std::int32_t>(h & 3);
    const int padding = static_cast<int>((h >> 9) & 1);
    const int frameLength = MpegFrameLength(info.layer, tableRate, info.sampleRate, padding);
    info.framesCounted = 1;

    // Counted from just after the header; trailing tag bytes count as audio.
    // A negative length (bit-rate index 15) counts no frames, as the
    // device's unsigned division did.
    const std::uint64_t headerPosition = sync.offset + 4;
    std::uint64_t frames = 0;
    if (frameLength > 0)
        frames = (info.layout.fileSize - headerPosition) / static_cast<std::uint64_t>(frameLength);
    info.layout.frameLength = frameLength;
    info.layout.frameCount = static_cast<std::uint32_t>(frames);
    info.duration = static_cast<std::int32_t>(frames * kMp3FrameMilliseconds / 1000);
    info.flags |= kMp3HasStream;
    info.bitRate = keptRate / static_cast<std::int32_t>(info.framesCounted);
}

} // namespace

void Mp3FileInfo::Reset() {
    for (std::u16string* text : {&path, &artist, &title, &album, &comment, &year, &genre})
        text->clear();
    flags = 0;
    track = 0;
    genreIndex = 255;
    framesCounted = 0;
    duration = version = layer = protection = bitRate = sampleRate = 0;
    channelMode = emphasis = copyright = original = 0;
}

int AnalyseMp3File(Mp3FileInfo& info, std::u16string_view path) {
    info.Reset();
    auto file = CurrentDevice().FileSystem().OpenFile(path, FileMode::Read);
    if (!file)
        return 0;
    // The start of the sync window and the ID3v2 tag of most files in one read.
    ReadAheadFile head(*file, kMp3ReadAhead);
    return AnalyseMp3File(info, head, path);
}

int AnalyseMp3File(Mp3FileInfo& info, DeviceFile& file, std::u16string_view path, Id3v2Tag* id3v2) {
    info.Reset();
    if (id3v2)
        id3v2->Reset();
    info.layout = Mp3StreamLayout{};
    info.layout.fileSize = file.Size();

    // The search always starts at offset 0, even behind an ID3v2 tag: a tag
    // longer than about 10,000 bytes hides the stream, and sync-like bytes in
    // a tag are taken for a header. That is the device's rule.
    const FrameSync sync = FindFrameSync(file, 0);
    if (sync.found) {
        info.layout.headerOffset = sync.offset;
        DecodeStream(info, sync);
    }

    if (info.layout.fileSize >= kId3v1Size) {
        std::array<std::byte, kId3v1Size> tail{};
        if (file.ReadAt(info.layout.fileSize - kId3v1Size, tail) == kId3v1Size)
            ReadMp3Id3v1(info, tail);
    }

    info.path = path;
    for (std::u16string* text : {&info.artist, &info.title, &info.album, &info.genre})
        TrimWhiteSpace(*text);
    if (info.flags == 0)
        return 0;

    Id3v2Tag local;
    Id3v2Tag& tag = id3v2 ? *id3v2 : local;
    ReadId3v2(tag, file);
    tag.path = path;
    MergeId3v2(info, tag);
    return 1;
}

} // namespace zelvor
