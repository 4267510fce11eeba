// Gives the Objective-C++ tests their precompiled headers a target.
