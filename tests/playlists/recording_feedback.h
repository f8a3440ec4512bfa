#pragma once
// A UserFeedback that records what the user would have heard and read, and
// answers message boxes from a queue (yes when the queue is empty).

#include "platform/text.h"
#include "playlists/playlist_operations.h"

#include <deque>
#include <string>
#include <vector>

namespace zelvor::testing {

class RecordingFeedback : public UserFeedback {
public:
    void Beep() override { ++beeps; }
    void PlaySound(std::u16string_view devicePath) override {
        sounds.push_back(ToUtf8(devicePath));
    }
    int MessageBox(std::u16string_view text, int type) override {
        messages.push_back(ToUtf8(text));
        types.push_back(type);
        if (answers.empty())
            return kIdYes;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }

    int beeps = 0;
    std::vector<std::string> sounds, messages;
    std::vector<int> types;
    std::deque<int> answers; // kIdYes once empty
};

} // namespace zelvor::testing
