// What a player of voice notes is doing.
#pragma once

/// Any other value means that nothing may be started.
enum class PlayState { Idle = 0, Busy = 1, Playing = 2 };
