#pragma once
// The words of the trace lines that mark what a watcher of the program waits
// for (a file added, an item started, a message shown, ...). The program and
// whoever reads its trace take them from here, so the two cannot drift apart.

namespace quorvel::trace {

inline constexpr char kAdded[] = "added"; // added "<path>" as entry <n>
inline constexpr char kAsEntry[] = "as entry";
inline constexpr char kStarted[] = "started";                         // started "<path>" monotonic= <ms>
inline constexpr char kItemEnded[] = "item ended";                    // item ended "<path>"
inline constexpr char kTick[] = "tick state=";                        // tick state=<n> time=<ms> length=<ms>
inline constexpr char kEnginePlaying[] = "engine playing monotonic="; // <ms>, when libVLC starts playing
inline constexpr char kMediaControl[] = "media control";
inline constexpr char kAfterPlay[] = "after-play action";
inline constexpr char kSeek[] = "seek";
inline constexpr char kVolume[] = "volume";
inline constexpr char kMessage[] = "message:";            // a playback message, before it is shown
inline constexpr char kMessageShown[] = "message shown:"; // its text, line breaks as " | "
inline constexpr char kInstanceReady[] = "running instance ready, process";
inline constexpr char kNegotiating[] = "negotiating, turn";
inline constexpr char kHandoffReceived[] = "hand-off received:";
inline constexpr char kFoundRunning[] = "a later start found this instance running";
inline constexpr char kRowChosen[] = "playlist row chosen";
inline constexpr char kMenu[] = "menu";
inline constexpr char kMediaInfoShown[] = "media information shown";
inline constexpr char kFullScreen[] = "full screen";
inline constexpr char kHistoryLoaded[] = "history loaded:";
inline constexpr char kHistoryAdded[] = "history added";
inline constexpr char kFirstPaint[] = "first paint monotonic="; // <ms>
inline constexpr char kClosed[] = "closed";
inline constexpr char kDialogShown[] = "dialog shown:";           // dialog shown: <caption>
inline constexpr char kDialogClosed[] = "dialog closed:";         // dialog closed: <caption> <result>
inline constexpr char kResumeSaved[] = "resume saved at";         // resume saved at <ms> "<path>"
inline constexpr char kResumed[] = "resumed at";                  // resumed at <ms> "<path>", asked=<0|1>
inline constexpr char kPlaylistSaved[] = "playlist saved:";       // <n> entries
inline constexpr char kPlaylistRestored[] = "playlist restored:"; // <n> entries, current <i>

// The seek bar's preview.
inline constexpr char kPreviewHover[] = "preview hover"; // preview hover <ms>, the pointer's time on the bar
// preview shown <ms> frame=<key frame ms|cover|none> for=<ms the frame was asked for>
inline constexpr char kPreviewShown[] = "preview shown";
inline constexpr char kPreviewDropped[] = "preview dropped for="; // <ms asked for> at=<the pointer's ms>
inline constexpr char kPreviewHidden[] = "preview hidden";

// Equalizer: the levels the engine applies to the playing item.
inline constexpr char kEqualizerOn[] = "equalizer on"; // equalizer on preamp=<dB> bands=<b1>,...,<b10>
inline constexpr char kEqualizerOff[] = "equalizer off";

// Audio tracks and subtitles, as the engine reports them.
inline constexpr char kTracksListed[] = "tracks listed:";   // audio <id> "<lang>" "<description>", ...; subtitles ...
inline constexpr char kTracksChosen[] = "tracks chosen by"; // tracks chosen by <preferences|memory>: audio <id> ...
inline constexpr char kAudioTrack[] = "audio track";        // audio track <id> "<lang>"
inline constexpr char kSubtitleTrack[] = "subtitle track";  // subtitle track <id> "<lang>", -1 when off
inline constexpr char kSubtitleDelay[] = "subtitle delay";  // subtitle delay <ms>
inline constexpr char kTrackMenuOpened[] = "track menu opened"; // track menu opened <key>

} // namespace quorvel::trace
