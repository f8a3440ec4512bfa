#include "playback/shuffle_random.h"

namespace zelvor {

ShuffleRandom& ProgramRandom() {
    static ShuffleRandom random;
    return random;
}

} // namespace zelvor
