#pragma once

/** How often this thread has asked for memory: malloc and all that end in it, operator new among them. */
long allocationCount();
