// simhost/host.h
// The stand-in host. It answers the 76 functions over an in-memory project, strictly: every misuse of a handle, an undo
// block or an accessor is a violation. The first one is kept as a sentence. The functions are plain C pointers, so only
// one Host lives at a time; it belongs to the thread that made it.
//
//     simhost::Host host;
//     simhost::Track& voice = AddTrack(host.project, "Voz");
//     host.project.tracks.Add(voice, simhost::MakeItem("A", 0, 4, simhost::Sine(48000, 2, 192000, 440, 0.5)));
//     ReaperPluginEntry(nullptr, host.Record());
//     host.RunAction("_QUILMO_ABRIR_PAINEL");
#pragma once
#include <functional>
#include <list>

#include "host/api.h"
#include "simhost/undo.h"

namespace simhost {

// What users choose in their host and callers see.
struct Preferences {
    bool undoRestoresSelection = true;  // else items keep the selection that they have when an undo brings them back
    int undoPoints = 200;               // the undo memory: older points vanish, in silence
    double splitCrossfade = 0;          // seconds of automatic crossfade at each split; 0: none
    bool sortsAtOnce = true;            // else items keep their places on the track until the next refresh or block end
    bool deletesTracks = false;         // what has the focus, and action 40697 removes: tracks, or items
};

struct ShownMessage {
    std::string text, title;
    int type, answer;
};

struct ShownInput {
    std::string title, captions, before;
    std::optional<std::string> answer;  // null: cancelled
};

// Dialogs are answered by a callback, if it is set, else from the queue, else by OK, no, cancel.
struct Dialogs {
    std::function<int(const std::string& text, const std::string& title, int type)> onMessage;
    std::function<std::optional<std::string>(const ShownInput&)> onInput;
    std::deque<int> messageAnswers;
    std::deque<std::optional<std::string>> inputAnswers;
    std::vector<ShownMessage> messages;  // shown so far
    std::vector<ShownInput> inputs;
};

struct Registration {
    std::string name;  // as given to Register
    void* info;
    int number;  // what Register returned
};

// What the extension looked up and registered.
struct Extension {
    std::vector<std::string> forgotten;                 // names that GetFunc does not know any more
    std::vector<std::string> unknown;                   // names that GetFunc was asked in vain
    std::vector<std::string> refused;                   // names to which Register answers 0
    std::vector<Registration> registrations;            // in order, without the refused
    void* Function(const std::string& name) const;      // what was registered as "API_name", or null
    int ActionNumber(const std::string& idText) const;  // of a "command_id", a leading "_" or not; 0 unknown
};

// Numbered actions: those of the host, of extensions and of scripts.
struct Actions {
    std::vector<int> run;                          // every number, in order
    std::map<int, int> toggles;                    // what GetToggleCommandState says; 1013 follows the transport
    std::map<int, std::function<void()>> outside;  // what they do outside the project: write files, open windows
    int lastNumber = 119999;                       // of the command numbers given so far
};

struct Script {
    int number;
    std::string path, text;  // text: as it was when the script was added
};

// Scripts in the action list.
struct Scripts {
    std::vector<Script> added, run;             // not yet removed; every run
    std::function<void(const Script&)> runner;  // null: runs are only recorded
};

// Playing and recording; there is no clock but Elapse.
struct Transport {
    enum State { Playing = 1, Paused = 2, Recording = 4 };
    int state = 0;
    double position = 0, recordStart = 0;
    SourceRef recorded;  // what a recording records; null: a tone
    void Elapse(double seconds);
};

// What there is to see beside the project.
struct Screen {
    int heldOff = 0;       // PreventUIRefresh's sum
    int64_t changes = 0;   // grows with each call that may have changed what there is to see
    int laneHeight = 110;  // of each track, in pixels, as the vertical zoom leaves it
    TimeRange beforeZoom;  // the view that action 41622 goes back to
};

// Settings that callers write to where they lie in memory; no address changes while a size stays.
struct Settings {
    std::map<std::string, std::vector<char>> host, project;
    int Number(const std::string& name) const;  // of the host's; 0 when it is not there or not 4 bytes
    void SetNumber(const std::string& name, int value);
};

// The 76 functions watched and disturbed.
class Calls {
  public:
    Calls();
    bool tracing = false;
    std::vector<std::string> trace;              // one line a call, e.g. SplitMediaItem(item A, 4) -> item A
    std::function<void(int64_t frames)> onRead;  // after each read through an accessor
    int64_t Count(const std::string& function) const;
    // From its n-th call from now on (1: the next) the function does nothing and gives null, false, or the number.
    void FailFrom(const std::string& function, int64_t n, int result = 0);
    void StopFailing();
    const char* Running() const { return running_; }  // the function being called; null between calls

  private:
    friend class Call;  // calls.cpp
    struct Counter {
        int64_t calls = 0;
        int64_t failsFrom = 0;  // 0: never
        int result = 0;
    };
    std::vector<Counter> counters_;  // one for each function
    const char* running_ = nullptr;
};

// What a take played when the accessor was made. Reading after the take has gone is a violation.
struct Accessor {
    Playback playback;
    const void* takeHandle;
    double length;  // of the item
    Identity identity;
};

class Host {
  public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    static Host& Current();  // the one that lives

    Project project;
    Preferences preferences;
    Undo undo{*this};
    Transport transport;
    Screen screen;
    Settings settings;
    Dialogs dialogs;
    Actions actions;
    Scripts scripts;
    Extension extension;
    Calls calls;
    std::string resourcePath = ".";
    HWND mainWindow = nullptr;
    std::list<Accessor> accessors;  // not destroyed yet

    reaper_plugin_info_t* Record() { return &record_; }  // what the extension's entry is given
    // As the user does. False: nothing takes the id; an unknown number is a violation.
    bool RunAction(const std::string& idText);
    void RunAction(int number);

    // What went wrong.
    void Violate(const std::string& sentence);  // the current function's name is put in front
    const std::string& FirstViolation() const { return firstViolation_; }  // empty: none
    int ViolationCount() const { return violationCount_; }
    void ForgetViolations();
    // Looks for what should be closed by now: undo blocks, refresh count, accessors. True when there is no violation.
    bool Check();

    // Handles of things, made when they are first asked for.
    ReaProject* Handle() { return identity_.Handle<ReaProject>(Kind::Project, this); }
    static MediaTrack* Handle(Track& t) { return t.identity.Handle<MediaTrack>(Kind::Track, &t); }
    static MediaItem* Handle(Item& i) { return i.identity.Handle<MediaItem>(Kind::Item, &i); }
    static MediaItem_Take* Handle(Take& t) { return t.identity.Handle<MediaItem_Take>(Kind::Take, &t); }
    static PCM_source* SourceHandle(Take& t) { return t.sourceIdentity.Handle<PCM_source>(Kind::Source, &t); }
    static AudioAccessor* Handle(Accessor& a) { return a.identity.Handle<AudioAccessor>(Kind::Accessor, &a); }
    // What a caller's handle stands for; null, with a violation, when it stands for nothing.
    static Host* Know(ReaProject* handle);  // null is the current project
    static Track* Know(MediaTrack* handle) { return static_cast<Track*>(Owner(handle, Kind::Track)); }
    static Item* Know(MediaItem* handle) { return static_cast<Item*>(Owner(handle, Kind::Item)); }
    static Take* Know(MediaItem_Take* handle) { return static_cast<Take*>(Owner(handle, Kind::Take)); }
    static Take* Know(PCM_source* handle) { return static_cast<Take*>(Owner(handle, Kind::Source)); }
    static Accessor* Know(AudioAccessor* handle) { return static_cast<Accessor*>(Owner(handle, Kind::Accessor)); }

  private:
    static void* Owner(const void* handle, Kind kind);
    bool RunRegistered(int number);

    reaper_plugin_info_t record_;
    Identity identity_;
    std::string firstViolation_;
    int violationCount_ = 0;
};

// From now on the host runs added scripts inside Main_OnCommand, in a real Lua 5.4; not on Windows. They find the host
// calls that they are known to use, and what extensions registered. What goes wrong in a script is a violation.
void RunScriptsWithLua(Host& host);

}  // namespace simhost
