// Whether the tests run under the sanitizers, where all is many times slower. What those look for
// shows in a few cases of a kind; the numbers themselves are compared in full in other builds.
#pragma once

#ifdef OVRI_SANITIZED
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif
