#pragma once

// Which key a window is holding down, as X reports keys: a held key repeats as release/press
// pairs, so a press of the key already held is a repeat, and a release while the keyboard still
// reports the key down is the first half of a repeat pair, not the real release. A window's
// key commands go through this so that each fires once per hold.
class KeyHold
{
public:
    // True for the first press of a key; false for a repeat and for a modifier key alone (Ctrl
    // released before N must not end the hold of N).
    bool press(int key);
    // True for the real release of the held key; false for the first half of a repeat pair
    // (`stillDown`) and for a key whose press this window did not see.
    bool release(int key, bool stillDown);
    // The release never came (the focus left, or it went elsewhere).
    void forget() { m_key = 0; }

private:
    int m_key = 0; // the key whose real release is awaited; 0 when none
};
