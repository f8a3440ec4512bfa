#pragma once
// "demo-manifest.jsonl" at the device root: one JSON object per line for
// every file the maker wrote into a storage folder, saying what the file
// really holds, so that tests can compare the tag readers and the library
// scan with it. Strings are UTF-8; device paths keep their backslashes.
//
//   {"path":"\\Storage Card\\Music\\...","type":"mp3","tags":"id3v23+id3v11",
//    "title":"...","artist":"...","album":"...","genre":"Pop","track":1,
//    "year":"2016","seconds":7,"hidden":false,"excluded":null}
//
// "seconds" is the length that was encoded; "excluded" is null for a file the
// scan must list, otherwise why it must not: "hidden", "dot-folder" or
// "not-music".

#include "tools/zelvor_demo/demo_catalog.h"

#include <string>
#include <string_view>

namespace zelvor::demo {

constexpr std::u16string_view kManifestPath = u"\\demo-manifest.jsonl";

// One line, ended by "\n".
std::string ManifestLine(const DemoFile& file);

// A JSON string literal, quotes included.
std::string JsonString(std::string_view utf8);

} // namespace zelvor::demo
