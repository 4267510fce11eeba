#pragma once

// An Objective-C class compiled by an Objective-C compiler, as C sees it: what src/platform sends to it and registers
// beside it is held against it.

extern "C" {

// A new witness (+1).
void* witnessMake(void);
// How many witnesses live.
int witnessesAlive(void);
// The compiler's encoding of the instance method; null when there is none.
const char* witnessEncoding(const char* selector);
// The compiler's encodings of BOOL, CGPoint, CGSize, CGRect, NSRange, CGFloat and NSInteger, in that order.
const char* const* witnessTypes(void);

// What an Objective-C caller gets from the object for these messages, sent with the compiler's own calls.
unsigned char callerTruth(void* object, unsigned char given);
double callerWidth(void* object, double width);
const char* callerText(void* object);
int callerSum(void* cls, int left, int right);

// How often each of the hooked methods' own implementations ran.
int parentRuns(void);
int childRuns(void);
void* childMake(void);
void* parentMake(void);
int callerNumber(void* object, int given);
}
