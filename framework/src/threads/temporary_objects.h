// The objects that the FromHandle functions make live until their thread is idle. A modal loop that
// runs inside a handler leaves alone those that were there when it began: the handler may use them.
#pragma once

// Counts the temporary objects of all kinds and threads; never 0.
unsigned NewTemporary();

// The present moment: objects made from now on are "since" it.
unsigned TemporaryMark();
// The count may have run over.
inline bool IsSince(unsigned made, unsigned mark) { return static_cast<int>(made - mark) >= 0; }

// Deletes the calling thread's; since 0: all of them.
void DeleteTemporaryObjects(unsigned since);
