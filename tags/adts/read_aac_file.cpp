#include "tags/adts/read_aac_file.h"

#include <array>

#include "platform/device.h"
#include "platform/text.h"
#include "bytes/read_ahead_file.h"

namespace zelvor {
namespace {

constexpr std::size_t kId3v1Size = 128;

bool HasAacExtension(std::u16string_view path) {
    std::size_t dot = path.rfind(u'.');
    if (dot == std::u16string_view::npos)
        return false;
    return FoldCase(path.substr(dot + 1)) == FoldCase(u"AAC");
}

std::u16string Pick(const std::u16string* v2, const std::u16string* v1) {
    if (!v2)
        return v1 ? *v1 : std::u16string();
    if (v1 && v2->size() < v1->size())
        return *v1;
    return *v2;
}

} // namespace

void MergeAacTags(AacTrackInfo& result, const std::optional<AacId3v2Frames>& id3v2,
                  const std::optional<AacId3v1>& id3v1) {
    const AacId3v2Frames* v2 = id3v2 ? &*id3v2 : nullptr;
    const AacId3v1* v1 = id3v1 ? &*id3v1 : nullptr;
    result.title = Pick(v2 ? &v2->title : nullptr, v1 ? &v1->title : nullptr);
    result.artist = Pick(v2 ? &v2->artist : nullptr, v1 ? &v1->artist : nullptr);
    result.album = Pick(v2 ? &v2->album : nullptr, v1 ? &v1->album : nullptr);
    result.genre = Pick(v2 ? &v2->genre : nullptr, v1 ? &v1->genre : nullptr);
    result.track = v1 ? v1->track : 0;
}

AacResult ReadAacStream(DeviceFile& file, AacTrackInfo& result) {
    result = AacTrackInfo{};
    std::array<std::byte, 10> head{};
    const std::size_t headBytes = file.ReadAt(0, head);
    const std::uint64_t start = AacStreamStart(std::span(head).first(headBytes));
    result.stream = CountAdtsFrames(file, start);
    result.duration = result.stream.DurationSeconds();

    std::optional<AacId3v1> id3v1;
    if (file.Size() >= kId3v1Size) {
        std::array<std::byte, kId3v1Size> tail{};
        if (file.ReadAt(file.Size() - kId3v1Size, tail) == kId3v1Size)
            id3v1 = ParseAacId3v1(tail);
    }
    MergeAacTags(result, start > 0 ? ReadAacId3v2(file) : std::nullopt, id3v1);
    return kAacOk;
}

AacResult ReadAacFile(std::u16string_view path, AacTrackInfo* result) {
    if (path.empty() || result == nullptr)
        return kAacMissingArgument;
    // The device opened the file once to test it and again for the reader;
    // one handle serves both here: the answers are the same and a library
    // scan saves a path lookup per file. kAacReaderOpenFailed stays defined
    // for callers that compare against it, but is no longer produced.
    auto file = CurrentDevice().FileSystem().OpenFile(path, FileMode::Read);
    if (!file)
        return kAacCannotOpen;
    *result = AacTrackInfo{};
    if (!HasAacExtension(path))
        return kAacNotAac;
    ReadAheadFile sized(*file, 0); // the size is asked for more than once
    return ReadAacStream(sized, *result);
}

} // namespace zelvor
