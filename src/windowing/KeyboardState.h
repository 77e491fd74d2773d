#pragma once

class QKeyEvent;

// Whether the key of a release event is still held on the keyboard. X repeats a held key as
// release/press pairs that the server makes together, so by the time it answers a query about
// the first half, the key is down again; after the real release it is up. Elsewhere (and for
// synthetic events) only Qt's own repeat flag counts.
bool keyStillDown(const QKeyEvent *release);
