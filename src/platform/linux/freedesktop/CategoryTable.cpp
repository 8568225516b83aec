#include "platform/linux/freedesktop/CategoryTable.h"

#include <string_view>

namespace zelmo::CategoryTable {

namespace {

enum class Type {
    productivity,
    finance,
    business,
    utilities,
    reference,
    developer,
    social,
    entertainment,
    games,
    music,
    video,
    graphics,
    photography,
    education,
    news,
    books,
};

constexpr std::array<std::string_view, 16> typeTexts{
    "public.app-category.productivity",
    "public.app-category.finance",
    "public.app-category.business",
    "public.app-category.utilities",
    "public.app-category.reference",
    "public.app-category.developer-tools",
    "public.app-category.social-networking",
    "public.app-category.entertainment",
    "public.app-category.games",
    "public.app-category.music",
    "public.app-category.video",
    "public.app-category.graphics-design",
    "public.app-category.photography",
    "public.app-category.education",
    "public.app-category.news",
    "public.app-category.books",
};

struct CategoryRow {
    std::string_view category;
    Type type;
};

// The row that comes first wins, wherever an entry lists the category, since entries list theirs in no
// order that means anything. What says what a program is for ("WebBrowser") therefore stands above what
// says where it belongs ("Network"), and of two such words the narrower stands above the wider; settings
// come before all, because a settings page for printers is a settings page. Each row answers where a person
// would look: the web, mail and office work under productivity, talking to people under social, what is
// played, heard or watched under entertainment, what is read or learned under reading.
constexpr std::array rows{
    // A page or a part of the desktop, whatever it is about.
    CategoryRow{"Settings", Type::utilities},
    CategoryRow{"DesktopSettings", Type::utilities},
    CategoryRow{"HardwareSettings", Type::utilities},
    CategoryRow{"Screensaver", Type::utilities},
    CategoryRow{"PackageManager", Type::utilities},
    CategoryRow{"TerminalEmulator", Type::utilities},
    CategoryRow{"FileManager", Type::utilities},

    CategoryRow{"WebBrowser", Type::productivity},
    CategoryRow{"Email", Type::productivity},

    // Making software.
    CategoryRow{"IDE", Type::developer},
    CategoryRow{"Debugger", Type::developer},
    CategoryRow{"GUIDesigner", Type::developer},
    CategoryRow{"Profiling", Type::developer},
    CategoryRow{"RevisionControl", Type::developer},
    CategoryRow{"WebDevelopment", Type::developer},
    CategoryRow{"Building", Type::developer},

    // Games.
    CategoryRow{"ActionGame", Type::games},
    CategoryRow{"AdventureGame", Type::games},
    CategoryRow{"ArcadeGame", Type::games},
    CategoryRow{"BoardGame", Type::games},
    CategoryRow{"BlocksGame", Type::games},
    CategoryRow{"CardGame", Type::games},
    CategoryRow{"KidsGame", Type::games},
    CategoryRow{"LogicGame", Type::games},
    CategoryRow{"RolePlaying", Type::games},
    CategoryRow{"Shooter", Type::games},
    CategoryRow{"SportsGame", Type::games},
    CategoryRow{"StrategyGame", Type::games},

    // Talking to people.
    CategoryRow{"InstantMessaging", Type::social},
    CategoryRow{"IRCClient", Type::social},
    CategoryRow{"Chat", Type::social},
    CategoryRow{"VideoConference", Type::social},
    CategoryRow{"Telephony", Type::social},
    CategoryRow{"HamRadio", Type::social},

    // Office work.
    CategoryRow{"Finance", Type::finance},
    CategoryRow{"ProjectManagement", Type::business},
    CategoryRow{"WordProcessor", Type::productivity},
    CategoryRow{"Spreadsheet", Type::productivity},
    CategoryRow{"Presentation", Type::productivity},
    CategoryRow{"Calendar", Type::productivity},
    CategoryRow{"ContactManagement", Type::productivity},
    CategoryRow{"PDA", Type::productivity},
    CategoryRow{"Chart", Type::productivity},
    CategoryRow{"FlowChart", Type::productivity},

    // Making pictures, pages and films.
    CategoryRow{"AudioVideoEditing", Type::graphics},
    CategoryRow{"Photography", Type::photography},
    CategoryRow{"Publishing", Type::graphics},
    CategoryRow{"Viewer", Type::books},
    CategoryRow{"VectorGraphics", Type::graphics},
    CategoryRow{"3DGraphics", Type::graphics},

    // Reading and learning.
    CategoryRow{"Dictionary", Type::education},
    CategoryRow{"Feed", Type::news},
    CategoryRow{"News", Type::news},
    CategoryRow{"Languages", Type::education},
    CategoryRow{"Literature", Type::books},
    CategoryRow{"Astronomy", Type::education},
    CategoryRow{"Biology", Type::education},
    CategoryRow{"Chemistry", Type::education},
    CategoryRow{"Geography", Type::education},
    CategoryRow{"Geology", Type::education},
    CategoryRow{"Geoscience", Type::education},
    CategoryRow{"History", Type::education},
    CategoryRow{"Humanities", Type::education},
    CategoryRow{"Maps", Type::education},
    CategoryRow{"Math", Type::education},
    CategoryRow{"NumericalAnalysis", Type::education},
    CategoryRow{"DataVisualization", Type::education},
    CategoryRow{"MedicalSoftware", Type::education},
    CategoryRow{"Physics", Type::education},
    CategoryRow{"Economy", Type::education},
    CategoryRow{"Spirituality", Type::books},
    CategoryRow{"ArtificialIntelligence", Type::education},
    CategoryRow{"ComputerScience", Type::education},
    CategoryRow{"ParallelComputing", Type::education},
    CategoryRow{"Robotics", Type::education},
    CategoryRow{"ImageProcessing", Type::education},

    // Hearing and watching. A burner of discs is a tool, though entries call it audio and video.
    CategoryRow{"DiscBurning", Type::utilities},
    CategoryRow{"Midi", Type::music},
    CategoryRow{"Sequencer", Type::music},
    CategoryRow{"Mixer", Type::music},
    CategoryRow{"Music", Type::music},
    CategoryRow{"TV", Type::video},
    CategoryRow{"Tuner", Type::video},
    CategoryRow{"Recorder", Type::entertainment},
    CategoryRow{"Player", Type::entertainment},

    // Small tools, whatever they work on.
    CategoryRow{"Scanning", Type::utilities},
    CategoryRow{"OCR", Type::utilities},
    CategoryRow{"Printing", Type::utilities},
    CategoryRow{"Calculator", Type::utilities},
    CategoryRow{"Clock", Type::utilities},
    CategoryRow{"Archiving", Type::utilities},
    CategoryRow{"Compression", Type::utilities},
    CategoryRow{"FileTransfer", Type::utilities},
    CategoryRow{"P2P", Type::utilities},
    CategoryRow{"RemoteAccess", Type::utilities},
    CategoryRow{"Dialup", Type::utilities},
    CategoryRow{"TelephonyTools", Type::utilities},
    CategoryRow{"FileTools", Type::utilities},
    CategoryRow{"Filesystem", Type::utilities},
    CategoryRow{"Monitor", Type::utilities},
    CategoryRow{"Security", Type::utilities},
    CategoryRow{"Accessibility", Type::utilities},

    // Words that are also said of programs of the kinds above.
    CategoryRow{"Translation", Type::developer},
    CategoryRow{"Database", Type::productivity},
    CategoryRow{"TextEditor", Type::utilities},
    CategoryRow{"Documentation", Type::reference},
    CategoryRow{"RasterGraphics", Type::graphics},
    CategoryRow{"2DGraphics", Type::graphics},
    CategoryRow{"Art", Type::graphics},
    CategoryRow{"Electronics", Type::education},
    CategoryRow{"Electricity", Type::education},
    CategoryRow{"Engineering", Type::education},
    CategoryRow{"Construction", Type::education},
    CategoryRow{"Sports", Type::entertainment},
    CategoryRow{"Amusement", Type::entertainment},
    CategoryRow{"Adult", Type::entertainment},
    CategoryRow{"TextTools", Type::utilities},

    // The main categories, for an entry that says no more.
    // Among them two narrower ones that are said of both games and tools: what says Game is a game.
    CategoryRow{"Game", Type::games},
    CategoryRow{"Emulator", Type::utilities},
    CategoryRow{"Simulation", Type::education},
    CategoryRow{"Development", Type::developer},
    CategoryRow{"Education", Type::education},
    CategoryRow{"Science", Type::education},
    CategoryRow{"Video", Type::video},
    CategoryRow{"Audio", Type::music},
    CategoryRow{"AudioVideo", Type::entertainment},
    CategoryRow{"Office", Type::productivity},
    CategoryRow{"Graphics", Type::graphics},
    CategoryRow{"Network", Type::productivity},
    CategoryRow{"System", Type::utilities},
    CategoryRow{"Utility", Type::utilities},
};

struct RankedRow {
    std::string_view category;
    std::size_t rank = 0;
};

// The same rows by name, so that an entry's categories are found by halving.
constexpr auto rowsByName = [] {
    std::array<RankedRow, rows.size()> sorted{};
    for (std::size_t i = 0; i < rows.size(); ++i)
        sorted[i] = {rows[i].category, i};
    std::sort(sorted.begin(), sorted.end(),
              [](const RankedRow& a, const RankedRow& b) { return a.category < b.category; });
    return sorted;
}();

static_assert(std::adjacent_find(rowsByName.begin(), rowsByName.end(),
                                 [](const RankedRow& a, const RankedRow& b) { return a.category == b.category; }) ==
                  rowsByName.end(),
              "each category has one row");

std::size_t rankOf(const QByteArray& category) {
    const std::string_view name(category.constData(), static_cast<std::size_t>(category.size()));
    const auto found =
        std::lower_bound(rowsByName.begin(), rowsByName.end(), name,
                         [](const RankedRow& row, std::string_view text) { return row.category < text; });
    return found != rowsByName.end() && found->category == name ? found->rank : rows.size();
}

} // namespace

std::optional<QString> categoryType(const QList<QByteArray>& categories) {
    std::size_t best = rows.size();
    for (const QByteArray& category : categories)
        best = std::min(best, rankOf(category));
    if (best == rows.size())
        return std::nullopt;
    const std::string_view text = typeTexts[static_cast<std::size_t>(rows[best].type)];
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace zelmo::CategoryTable
