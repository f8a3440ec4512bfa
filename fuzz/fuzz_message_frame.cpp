// The message frames that other programs send, on arbitrary bytes: a frame
// that decodes must be exactly what encoding its message gives.

#include <algorithm>
#include <cstdlib>

#include "fuzz/fuzz_seeds.h"
#include "platform/message_frame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    const auto bytes = std::as_bytes(std::span(data, size));
    if (auto request = DecodeRequest(bytes)) {
        const auto again = EncodeRequest(*request);
        if (!std::equal(again.begin(), again.end(), bytes.begin(), bytes.end()))
            std::abort();
    }
    if (auto answer = DecodeAnswer(bytes)) {
        const auto again = EncodeAnswer(*answer);
        if (!std::equal(again.begin(), again.end(), bytes.begin(), bytes.end()))
            std::abort();
    }
    return 0;
}

std::vector<FuzzInput> MakeFuzzSeeds() {
    using namespace zelvor;
    MessageRequest send{MessageKind::Send, {0x8001, 7, -1}};
    MessageRequest post{MessageKind::Post, {0x0111, 0xFFFFFFFF, 42}};
    return {FuzzBytes(EncodeRequest(send)), FuzzBytes(EncodeRequest(post)),
            FuzzBytes(EncodeAnswer(-5)), FuzzBytes(EncodeAnswer(1))};
}
