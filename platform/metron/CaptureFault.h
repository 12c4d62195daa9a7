#pragma once

#include <QString>

namespace Metron {

/** What every operation of PerformanceCapture returns. The numbers stand in logs and do not change. */
enum CaptureCode : unsigned long {
    Success = 0,
    NoSuchFile = 1, ///< nothing there, or no regular file
    CannotRead = 2,
    TooLarge = 3,          ///< above RecordingDescriptor::MaximumFileSize
    NotJson = 4,           ///< no JSON, or no object
    UnknownKey = 5,        ///< a key that descriptors do not have, such as a misspelt one
    WrongType = 6,         ///< a missing name, or a value that is none of its key
    LimitOutOfRange = 7,   ///< not within 1..EventRing::Capacity
    NoDescriptor = 10,     ///< none was loaded
    NotItsName = 11,       ///< the descriptor is that of another recording
    AlreadyRecording = 12, ///< refused while a recording runs
    NotRecording = 20,
    NothingRecorded = 21, ///< no event that the filter takes was raised
    NoResults = 30,       ///< none were captured
    CannotWrite = 31
};

/** A code, and in words what is wrong with which file or recording and what to do; no words with Success. */
struct CaptureFault
{
    CaptureCode code = Success;
    QString reason;
};

} // namespace Metron
