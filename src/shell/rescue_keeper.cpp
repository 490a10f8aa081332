#include "shell/rescue_keeper.h"

#include "core/aircraft_file.h"
#include "core/tables.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"
#include "shell/workspace.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QEvent>
#include <QGuiApplication>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>
#include <utility>
#ifndef Q_OS_WIN
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace vantor {

namespace {

constexpr std::string_view module = "rescue_keeper";

// All aircraft as their file would hold them.
std::string aircraftText() {
    std::string text;
    for (std::int32_t row = 1; row <= aircraftcount; ++row) {
        appendAircraft(text, aircraft[row]);
    }
    return text;
}

// A folder of the user's own for the program's folder.
QString dataFolder(const QString& folder) {
    const QByteArray name = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/rescue-") +
           QString::fromLatin1(name);
}

} // namespace

struct RescueKeeper::Place {
    explicit Place(const QString& native)
        : folder(programPath(std::filesystem::path(native.toStdU16String())) + "\\"),
          lock(native + QStringLiteral("/Vantor2.lock")) {
        lock.setStaleLockTime(0); // a program may be open for days; one that was killed holds nothing
    }
    std::string folder;
    QLockFile lock;
};

RescueKeeper::RescueKeeper(Workspace& workspace) : m_workspace(workspace) {
    connect(&m_watch, &QTimer::timeout, this, &RescueKeeper::look);
    connect(&m_slices, &QTimer::timeout, this, &RescueKeeper::slice);
    setPauses(m_quiet, m_latest);
}

RescueKeeper::~RescueKeeper() {
#ifndef Q_OS_WIN
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, SIG_DFL);
    }
#endif
}

void RescueKeeper::setPauses(std::chrono::milliseconds quiet, std::chrono::milliseconds latest) noexcept {
    m_quiet = quiet;
    m_latest = latest;
    m_watch.setInterval(std::min(quiet, std::chrono::milliseconds(1000)));
}

void RescueKeeper::start() {
    const StandardTrap trap{"start", module};
    trap(&RescueKeeper::takePlaces, this);
    if (m_offerChanged) { // also where the folder is open elsewhere
        m_offerChanged();
    }
    if (m_home.empty()) {
        return;
    }
    rememberFlightplans();
    trap(&RescueKeeper::rememberAircraft, this);
    m_sinceInput.start();
    QCoreApplication::instance()->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &RescueKeeper::keepNow, Qt::DirectConnection);
    trap(&RescueKeeper::watchSignals, this);
}

// The copy goes to the first folder that is free, and what is offered may lie in any that is.
void RescueKeeper::takePlaces() {
    const QString beside = QString::fromStdU16String(nativePath(programFolder()).u16string());
    const QString own = dataFolder(beside);
    for (const QString& folder : {beside, own}) {
        const bool wanted = m_home.empty() || QDir(folder).exists();
        if (folder == own && m_home.empty()) {
            QDir().mkpath(folder);
        }
        auto place = std::make_unique<Place>(folder);
        if (!wanted || !place->lock.tryLock(0)) {
            m_openElsewhere =
                m_openElsewhere || (folder == beside && place->lock.error() == QLockFile::LockFailedError);
            continue;
        }
        std::optional<RescueNote> note = readRescueNote(place->folder);
        const bool isHome = m_home.empty();
        if (isHome) {
            m_home = place->folder;
            m_standing = note ? Standing::Left : Standing::Nothing;
        }
        if (note && !m_offer) {
            offerCopy(Offer{*note, place->folder, rescuedFlightplans(place->folder), rescuedAircraft(place->folder)});
        }
        if (isHome || (m_offer && m_offer->folder == place->folder)) {
            m_places.push_back(std::move(place));
        }
    }
}

void RescueKeeper::stop() noexcept {
    m_home.clear();
    m_watch.stop();
    m_slices.stop();
    m_writer.reset();
}

bool RescueKeeper::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
        m_sinceInput.start();
        if (!m_home.empty() && !m_watch.isActive()) {
            m_watch.start();
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void RescueKeeper::look() {
    const StandardTrap trap{"look", module};
    if (m_loading || m_slices.isActive() || host().pumping()) {
        return;
    }
    const bool quiet = std::chrono::milliseconds(m_sinceInput.elapsed()) >= m_quiet;
    bool wanted = false;
    trap.set(wanted, &RescueKeeper::pending, this);
    if (!wanted || journal().revision() == m_kept) {
        if (!wanted) {
            dropNeedless();
        }
        m_sinceChange.invalidate();
        if (quiet) {
            m_watch.stop();
        }
        return;
    }
    if (!m_sinceChange.isValid()) {
        m_sinceChange.start();
    }
    const bool overdue = std::chrono::milliseconds(m_sinceChange.elapsed()) >= m_latest;
    // What the disk refused is tried again with the next change, or after a while.
    if (overdue || (quiet && journal().revision() != m_failed)) {
        m_slices.start(0);
    }
}

// One step of the copy, between the events of the user.
void RescueKeeper::slice() noexcept {
    if (m_loading || host().pumping()) {
        return;
    }
    if (step() != Went::On) {
        m_slices.stop();
    }
}

RescueKeeper::Went RescueKeeper::step() {
    const StandardTrap trap{"keepcopy", module};
    bool done = false;
    const bool well = trap([&] {
        if (!m_writer) {
            m_writer.emplace(m_home, note());
        }
        done = m_writer->step();
    });
    if (!well || done) {
        (well ? m_kept : m_failed) = well ? m_writer->revision() : journal().revision();
        m_sinceChange.invalidate();
        m_writer.reset();
    }
    if (done && std::exchange(m_standing, Standing::Ours) == Standing::Left && m_offer && m_offer->folder == m_home) {
        m_offer->flightplans += ".1"; // the copy of others stepped aside
        m_offer->aircraft += ".1";
    }
    if (!well) {
        return Went::Failed;
    }
    return done ? Went::Done : Went::On;
}

void RescueKeeper::keepNow() noexcept {
    const StandardTrap trap{"keepnow", module};
    if (m_home.empty() || m_loading) {
        return;
    }
    bool wanted = false;
    trap.set(wanted, &RescueKeeper::pending, this);
    if (!wanted) {
        dropNeedless();
    }
    // The copy that was under way may lack the latest changes: then another follows.
    while (wanted && journal().revision() != m_kept && step() != Went::Failed) {
    }
    m_slices.stop();
}

void RescueKeeper::rememberFlightplans() noexcept {
    m_savedRevision = journal().scheduleRevision();
    m_savedState = journal().state();
    beginAnew();
}

void RescueKeeper::rememberAircraft() {
    m_savedAircraft = aircraftText();
    beginAnew();
}

// The note of a copy tells what is still to be saved.
void RescueKeeper::beginAnew() noexcept {
    m_writer.reset();
    m_slices.stop();
    m_kept = -1;
}

bool RescueKeeper::flightplansPending() const noexcept {
    return journal().scheduleRevision() != m_savedRevision && (journal().isOpen() || journal().state() != m_savedState);
}

bool RescueKeeper::aircraftPending() const {
    return aircraftText() != m_savedAircraft;
}

RescueNote RescueKeeper::note() const {
    return {.when = {},
            .mode = m_mode,
            .plansuffix = plansuffix,
            .flightplans = m_workspace.flightsname,
            .aircraft = m_workspace.aircraftname,
            .airports = m_workspace.airportsname,
            .flightplansStamp = m_workspace.stamps.of(m_workspace.flightsname),
            .aircraftStamp = m_workspace.stamps.of(m_workspace.aircraftname),
            .flightplansChanged = flightplansPending(),
            .aircraftChanged = aircraftPending(),
            .setAside = m_standing == Standing::Left};
}

void RescueKeeper::offerCopy(std::optional<Offer> offer) {
    m_offer = std::move(offer);
    if (m_offerChanged) {
        m_offerChanged();
    }
}

void RescueKeeper::dropNeedless() noexcept {
    beginAnew();
    if (m_standing == Standing::Ours && !m_home.empty()) {
        removeRescue(m_home);
        m_standing = Standing::Nothing;
    }
}

void RescueKeeper::giveUp() noexcept {
    const StandardTrap trap{"giveup", module};
    dropNeedless();
    rememberFlightplans();
    trap(&RescueKeeper::rememberAircraft, this);
}

void RescueKeeper::savedFlightplans() noexcept {
    rememberFlightplans();
    look();
}

void RescueKeeper::savedAircraft() noexcept {
    const StandardTrap trap{"savedaircraft", module};
    trap(&RescueKeeper::rememberAircraft, this);
    look();
}

RescueKeeper::Loading::Loading(RescueKeeper& keeper, bool agreedToLose) : m_keeper(keeper) {
    const StandardTrap trap{"loading", module};
    if (agreedToLose) {
        keeper.giveUp();
    }
    keeper.keepNow();
    if (keeper.m_standing == Standing::Ours) {
        trap([&] {
            const std::string& home = keeper.m_home;
            if (const std::optional<RescueNote> note = readRescueNote(home)) {
                keeper.m_standing = Standing::Left;
                keeper.offerCopy(Offer{*note, home, rescuedFlightplans(home), rescuedAircraft(home)});
            }
        });
    }
    keeper.m_loading = true;
}

RescueKeeper::Loading::~Loading() {
    const StandardTrap trap{"loading", module};
    m_keeper.m_loading = false;
    m_keeper.rememberFlightplans();
    m_keeper.m_mode = fsmode;
    if (m_aircraft) {
        trap(&RescueKeeper::rememberAircraft, m_keeper);
    }
}

void RescueKeeper::restored() {
    const Offer offer = *std::exchange(m_offer, {});
    m_savedRevision = offer.note.flightplansChanged ? -1 : m_savedRevision;
    m_savedState = offer.note.flightplansChanged ? -1 : m_savedState;
    m_savedAircraft = offer.note.aircraftChanged ? "-" : m_savedAircraft; // no aircraft's line
    if (offer.folder == m_home && m_standing == Standing::Left) {
        m_standing = Standing::Ours; // it stands for what is in the tables now
        m_kept = journal().revision();
    } else {
        keepNow();
        if (offer.folder != m_home && m_standing == Standing::Ours) {
            removeRescue(offer.folder);
        }
    }
    offerCopy({});
}

#ifdef Q_OS_WIN

void RescueKeeper::watchSignals() {} // the session's end is the one way to be asked to go

void RescueKeeper::endBySignal(int /*signal*/) {}

#else

namespace {

// What a signal writes at one end comes out of the other in the event loop.
std::array<int, 2> signalSockets = {-1, -1};
constexpr std::array<int, 3> endings = {SIGTERM, SIGINT, SIGHUP};

void passSignal(int signal) {
    const int before = errno;
    const auto byte = static_cast<char>(signal);
    static_cast<void>(!::write(signalSockets[0], &byte, 1));
    errno = before;
}

} // namespace

void RescueKeeper::watchSignals() {
    if (signalSockets[0] == -1 &&
        ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalSockets.data()) != 0) {
        throw errorFromErrno(errno);
    }
    auto* const notifier = new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char signal = 0;
        if (::read(signalSockets[1], &signal, 1) == 1) {
            endBySignal(signal);
        }
    });
    for (const int signal : endings) {
        std::signal(signal, passSignal);
    }
}

// Ends as the signal would have it, with the changes kept.
void RescueKeeper::endBySignal(int signal) {
    if (host().pumping()) { // a command is still making its changes
        QTimer::singleShot(m_quiet / 10, this, [this, signal] { endBySignal(signal); });
        return;
    }
    keepNow();
    m_places.clear();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

#endif

} // namespace vantor
