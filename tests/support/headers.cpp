// Gives the C++ tests their precompiled headers a target.
