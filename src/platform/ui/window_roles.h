#pragma once

// Screen readers take a top-level window made from a plain widget for an unnamed filler. This tells them it is a
// dialog, or a frame when it has no title bar; install once, before the first window shows.
namespace window_roles {
void install();
}
