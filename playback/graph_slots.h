#pragma once
// The process-wide graph slots: the one MediaGraph there is, and which of
// its slots the engine has obtained. A slot reads as null until it is filled;
// the graph itself lives as long as any slot holds it, like an object held
// by several interface pointers.

#include <array>
#include <memory>

#include "playback/media_graph.h"

namespace zelvor {

class GraphSlots {
public:
    // The graph of a slot, or nullptr when the slot is empty.
    MediaGraph* Get(GraphSlot slot) const {
        return m_filled[Index(slot)] ? m_graph.get() : nullptr;
    }
    bool Has(GraphSlot slot) const { return m_filled[Index(slot)]; }

    MediaGraph* Builder() const { return Get(GraphSlot::Builder); }
    MediaGraph* Control() const { return Get(GraphSlot::Control); }
    MediaGraph* Events() const { return Get(GraphSlot::Events); }
    MediaGraph* Seeking() const { return Get(GraphSlot::Seeking); }
    MediaGraph* BasicAudio() const { return Get(GraphSlot::BasicAudio); }

    // Takes a freshly created graph into the builder slot (any earlier graph
    // must have been released).
    void SetBuilder(std::unique_ptr<MediaGraph> graph) {
        m_graph = std::move(graph);
        m_filled = {};
        m_filled[Index(GraphSlot::Builder)] = m_graph != nullptr;
    }
    // Marks a further slot of the same graph as obtained.
    void Fill(GraphSlot slot) {
        if (m_graph)
            m_filled[Index(slot)] = true;
    }
    // Releases one slot; the graph is destroyed with its last slot.
    void Release(GraphSlot slot) {
        m_filled[Index(slot)] = false;
        for (bool filled : m_filled) {
            if (filled)
                return;
        }
        m_graph.reset();
    }
    bool Empty() const { return m_graph == nullptr; }

private:
    static constexpr int Index(GraphSlot slot) { return static_cast<int>(slot); }

    std::unique_ptr<MediaGraph> m_graph;
    std::array<bool, kGraphSlotCount> m_filled{};
};

} // namespace zelvor
