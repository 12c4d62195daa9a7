#pragma once

/** How often this thread has waited for a medium: fsync, fdatasync and sync_file_range. */
long flushCount();
