#pragma once
// What the demo device holds: a small collection of invented artists and
// albums in every format and tag layout the player reads, spread over the
// storage card and the flash disk, plus the cases a library scan must leave
// out (a hidden file, a file in a dot-folder, a .m4a file, non-music files)
// and an empty folder.

#include "tools/zelvor_demo/tag_fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvor::demo {

enum class FileKind {
    Mp3Stereo128, // MPEG-1 Layer III, 128 kbit/s, 44,100 Hz stereo
    Mp3Stereo320, // MPEG-1 Layer III, 320 kbit/s, 44,100 Hz stereo
    Mp3Mono22k,   // MPEG-2 Layer III, 64 kbit/s, 22,050 Hz mono
    Wma,          // wmav2 in ASF, 128 kbit/s
    Aac,          // raw ADTS, 128 kbit/s
    AacLong,      // raw ADTS longer than 1 MiB
    M4a,          // AAC in an MP4 (iPod) container
    CoverJpeg,    // a small picture
    NotesText,    // a UTF-8 text file
    ProgramFile,  // written by the maker into the program directory (Ombrel.txt, skins)
};

enum class TagStyle {
    None,
    Id3v23,    // ID3v2.3 at the start
    Id3v23V11, // ID3v2.3 at the start and ID3v1.1 at the end
    Id3v24,
    Id3v22, // hand-built: ffmpeg cannot write it
    Asf,    // content description and extended content descriptors
    Mp4,    // iTunes-style atoms
};

struct DemoFile {
    std::u16string path; // device path
    FileKind kind = FileKind::Mp3Stereo128;
    TagStyle tags = TagStyle::None;
    TagFields fields;          // what the tags hold; all empty without tags
    int seconds = 0;           // length of the audio, 0 for other files
    unsigned seed = 0;         // picks the tune
    bool hidden = false;       // gets the hidden attribute
    std::string_view excluded; // why a library scan leaves it out; empty when it is music
};

// Every file of the collection, in the order they are written. Files of the
// program directory are added by the maker as it writes them.
std::vector<DemoFile> DemoCollection();

// Folders made without anything in them.
std::vector<std::u16string> DemoEmptyFolders();

// Manifest names: "mp3", "wma", "aac", "m4a" or "other"; and the tag layout
// ("id3v23+id3v11", "asf", "none", ...).
std::string_view ManifestType(FileKind kind);
std::string_view ManifestTags(TagStyle tags);

bool IsAudio(FileKind kind);

} // namespace zelvor::demo
