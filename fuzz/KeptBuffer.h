// The stream's buffer, kept from one input to the next.
#pragma once

// Sanitizers map a block of the buffer's size again each time, which takes ten times as long as most inputs.
// From this call on operator new gives such a block, once freed, again; freed, it is poisoned. (It works
// through support/FailingMemory.cpp, whose operators the target links.)
void KeepBuffer();
