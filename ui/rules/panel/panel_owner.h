#pragma once
// What the play list panel hands to the program around it: its list, when
// the user hands it on, and the control, when the user leaves. The main
// frame implements it. UI thread only.

namespace zelvor {

class TrackList;

class PanelOwner {
public:
    virtual ~PanelOwner() = default;
    // Hand on (1002): the owner takes the list over; the records stay the
    // panel's, the owner copies what it keeps.
    virtual void HandOn(const TrackList& list) = 0;
    // Leave (1005): the owner takes the control back.
    virtual void Leave() = 0;
};

} // namespace zelvor
