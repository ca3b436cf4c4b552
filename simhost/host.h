// simhost/host.h
// The stand-in host. It answers the 76 functions over an in-memory project, strictly: every misuse of a handle, an undo
// block or an accessor is a violation, and the first one is kept as a sentence. The functions are plain C pointers, so
// only one Host lives at a time, and all of it belongs to the thread that made it.
//
//     simhost::Host host;
//     simhost::Track& voice = AddTrack(host.project, "Voz");
//     host.project.tracks.Add(voice, simhost::MakeItem("A", 0, 4, simhost::Sine(48000, 2, 192000, 440, 0.5)));
//     ReaperPluginEntry(nullptr, host.Record());
//     host.RunAction("_QUILMO_ABRIR_PAINEL");
#pragma once
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/api.h"
#include "simhost/project.h"

namespace simhost {

// What users choose in their host and callers see.
struct Preferences {
    bool undoRestoresSelection = true;  // else items keep the selection that they have when an undo brings them back
    int undoPoints = 200;               // the undo memory: older points vanish, in silence
    double splitCrossfade = 0;          // seconds of automatic crossfade at each split; 0: none
    bool sortsAtOnce = true;            // else items keep their places on the track until the next refresh or block end
    enum class Focus { Items, Tracks, Envelope } deleteFocus = Focus::Items;  // what action 40697 removes
};

struct ShownMessage {
    std::string text, title;
    int type, answer;
};

struct ShownInput {
    std::string title, captions, before;
    std::optional<std::string> answer;  // null: cancelled
};

struct Registration {
    std::string name;  // as given to Register
    void* info;
    int number;  // what Register returned
};

struct Accessor;

struct Script {
    int number;
    std::string path, text;  // text: as it was when the script was added
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
    std::string resourcePath = ".", os = "Win64";
    HWND mainWindow = nullptr;

    // --- the extension's side
    reaper_plugin_info_t* Record() { return &record_; }
    int Register(const std::string& name, void* info);
    void Forget(const std::string& function);           // GetFunc no longer knows it
    std::vector<std::string> unknownNames;              // asked of GetFunc in vain
    std::vector<std::string> refused;                   // names to which Register answers 0
    std::vector<Registration> registrations;            // in order, without the refused
    void* ApiFunction(const std::string& name) const;   // what was registered as "API_name", or null
    int ActionNumber(const std::string& idText) const;  // of a registered "command_id", a leading "_" or not; 0 unknown
    void* Function(const char* name) const;             // one of the 76, as GetFunc gives it, or null

    // --- running things as the user does
    bool RunAction(const std::string& idText);  // false when nothing takes it
    void RunAction(int number);                 // numbered, registered or a script; an unknown number is a violation
    std::vector<int> actionsRun;                // every number, in order

    // --- what went wrong
    void Violate(const std::string& sentence);  // the current function's name is put in front
    const std::string& FirstViolation() const { return firstViolation_; }  // empty: none
    int ViolationCount() const { return violationCount_; }
    void ForgetViolations();
    // Looks for what should be closed by now: undo blocks, refresh count, accessors. True when there is no violation.
    bool Check();

    // --- watching and disturbing
    bool tracing = false;
    std::vector<std::string> trace;  // one line a call, e.g. SplitMediaItem(item A, 4) -> item A
    int64_t CallCount(const std::string& function) const;
    // From its n-th call from now on (1: the next) the function does nothing and gives null, false, or the number.
    void FailFrom(const std::string& function, int64_t n, int result = 0);
    void StopFailing();
    std::function<void(int64_t frames)> onRead;  // after each read through an accessor

    // --- dialogs: a callback, if set, else the script queue, else OK, no, cancel
    std::deque<int> messageAnswers;
    std::deque<std::optional<std::string>> inputAnswers;
    std::function<int(const std::string& text, const std::string& title, int type)> onMessage;
    std::function<std::optional<std::string>(const ShownInput&)> onInput;
    std::vector<ShownMessage> messages;  // shown so far
    std::vector<ShownInput> inputs;

    // --- undo (undo.cpp says how): one point a block, also when the block changed nothing; inner blocks make none
    void BeginBlock();
    void EndBlock(const std::string& title);
    bool BlockOpen() const { return blockDepth_ > 0; }
    bool Undo();
    bool Redo();
    const char* UndoTitle() const;  // of the topmost point, or null
    const char* RedoTitle() const;
    std::vector<std::string> UndoHistory() const;  // titles, oldest first, up to the topmost
    // Forgets all points; the project as it stands is what the first undo will give back. Without it, that is the
    // project as it stood when the first block was opened.
    void StartHistory();

    int refreshHeldOff = 0;  // PreventUIRefresh's sum
    int64_t changes = 0;     // grows with each call that may have changed what there is to see

    // --- transport (transport.cpp); there is no clock but Elapse
    int playState = 0;  // 1 playing, 2 paused, 4 recording
    double playPosition = 0, recordStart = 0;
    SourceRef recordingSource;  // what a recording records; null: a tone
    void Elapse(double seconds);

    // --- actions and settings
    std::map<int, int> toggles;  // GetToggleCommandState of numbered actions; 1013 follows playState
    TimeRange viewBeforeZoom;    // where action 41622 goes back to
    int laneHeight = 110;        // of each track, in pixels, as the vertical zoom leaves it
    std::map<std::string, std::vector<char>> configVars, projectConfigVars;  // no address changes while a size stays
    int ConfigInt(const std::string& name) const;  // of configVars; 0 when it is not there or not 4 bytes
    void SetConfigInt(const std::string& name, int value);
    std::vector<Script> scripts, scriptsRun;                 // added and not yet removed; every run
    int AddRemoveScript(bool add, const std::string& path);  // the command number, 0 when the file cannot be read
    std::function<void(const Script&)> scriptRunner;         // null: runs are only recorded
    // What numbered actions do outside the project: write files, open windows.
    std::map<int, std::function<void()>> onAction;

    // --- handles
    ReaProject* Handle() { return static_cast<ReaProject*>(identity_.Handle(Kind::Project, this)); }
    static MediaTrack* Handle(Track& t) { return static_cast<MediaTrack*>(t.identity.Handle(Kind::Track, &t)); }
    static MediaItem* Handle(Item& i) { return static_cast<MediaItem*>(i.identity.Handle(Kind::Item, &i)); }
    static MediaItem_Take* Handle(Take& t) { return static_cast<MediaItem_Take*>(t.identity.Handle(Kind::Take, &t)); }
    static PCM_source* SourceHandle(Take& t) {
        return static_cast<PCM_source*>(t.sourceIdentity.Handle(Kind::Source, &t));
    }
    // What a caller's handle stands for; null, with a violation, when it stands for nothing.
    bool Know(ReaProject* handle);  // null is the current project
    Track* Know(MediaTrack* handle) { return static_cast<Track*>(Owner(handle, Kind::Track)); }
    Item* Know(MediaItem* handle) { return static_cast<Item*>(Owner(handle, Kind::Item)); }
    Take* Know(MediaItem_Take* handle) { return static_cast<Take*>(Owner(handle, Kind::Take)); }
    Take* Know(PCM_source* handle) { return static_cast<Take*>(Owner(handle, Kind::Source)); }
    void* Owner(const void* handle, Kind kind);

    std::vector<std::unique_ptr<Accessor>> accessors;  // accessor.h; not destroyed yet
    double accessorStart = 0;                          // what GetAudioAccessorStartTime says of those made from now on

  private:
    friend class Call;  // calls.cpp
    struct Point {
        std::string title;
        Project after;
    };
    void Restore(const Project& to);
    bool RunRegistered(int number);

    reaper_plugin_info_t record_;
    Identity identity_;
    std::vector<std::string> forgotten_;
    std::string firstViolation_;
    int violationCount_ = 0;
    const char* running_ = nullptr;  // the function being called; null between calls
    struct Counter {
        int64_t calls = 0;
        int64_t failsFrom = 0;  // 0: never
        int result = 0;
    };
    std::vector<Counter> counters_;  // one for each function
    int blockDepth_ = 0;
    std::optional<Project> base_;  // below the first point; none before the first block
    std::deque<Point> points_;
    size_t top_ = 0;           // points_[0..top_) can be undone, the rest redone
    int lastNumber_ = 119999;  // of the command numbers given so far
};

}  // namespace simhost
