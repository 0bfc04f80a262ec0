// The window classes of the common controls.
#pragma once

// Sees to it that they are registered.
void RegisterCommonControls();
