// Shell: the main window, its dialogs and the settings of the application.
// The keeper of the rescue copy: when it is written, when it is needless, and what is offered at the next start.
#pragma once

#include "core/rescue_copy.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QLockFile;

namespace vantor {

struct Workspace;

/// Keeps what is not saved in a copy beside the program, or in the user's own data where that can't be written or
/// another program has the folder: some seconds after the last input, at the latest a minute after the first change
/// that the copy lacks, and at once where changes may be lost. It looks at the clock only while there is something to
/// keep.
class RescueKeeper : public QObject {
    Q_OBJECT
  public:
    explicit RescueKeeper(Workspace& workspace);
    ~RescueKeeper() override;

    /// Takes the folder and looks for a copy of a run before. Without it nothing is ever kept.
    void start();
    /// Ends it: from here on nothing is written.
    void stop() noexcept;
    /// Other pauses than those of the program.
    void setPauses(std::chrono::milliseconds quiet, std::chrono::milliseconds latest) noexcept;

    /// Whether another program has the program's folder.
    [[nodiscard]] bool openElsewhere() const noexcept { return m_openElsewhere; }

    /// A copy that waits to be restored.
    struct Offer {
        RescueNote note;
        std::string folder;
        std::string flightplans; ///< the files to be read
        std::string aircraft;
    };
    [[nodiscard]] const std::optional<Offer>& offer() const noexcept { return m_offer; }
    /// Called when there is another offer, or none any more.
    void whenOfferChanges(std::function<void()> told) { m_offerChanged = std::move(told); }
    /// The offer was loaded into the tables.
    void restored();

    /// While it lives a load goes on: nothing half loaded is kept. Changes that the user agreed to lose are given up;
    /// all others are kept first, and then offered like those of a run before.
    class Loading {
      public:
        Loading(RescueKeeper& keeper, bool agreedToLose);
        ~Loading();
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;
        /// The aircraft are loaded as well, and not only the flight plans.
        void takesAircraft() noexcept { m_aircraft = true; }

      private:
        RescueKeeper& m_keeper;
        bool m_aircraft = false;
    };

    /// The flight plans, or the aircraft, stand in their file.
    void savedFlightplans() noexcept;
    void savedAircraft() noexcept;
    /// Whether there is something to keep.
    [[nodiscard]] bool pending() const { return m_mode != 0 && (flightplansPending() || aircraftPending()); }
    /// Keeps at once what is not kept yet.
    void keepNow() noexcept;
    /// The user agreed to lose the changes.
    void giveUp() noexcept;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    struct Place;
    enum class Standing { Nothing, Ours, Left }; // the copy at our place: none, of these changes, or of others

    void takePlaces();
    void look();
    void slice() noexcept;
    enum class Went { On, Done, Failed };
    [[nodiscard]] Went step();
    [[nodiscard]] bool flightplansPending() const noexcept;
    [[nodiscard]] bool aircraftPending() const;
    [[nodiscard]] RescueNote note() const;
    void offerCopy(std::optional<Offer> offer);
    void dropNeedless() noexcept;
    void rememberFlightplans() noexcept;
    void rememberAircraft();
    void beginAnew() noexcept;
    void watchSignals();
    void endBySignal(int signal);

    Workspace& m_workspace;
    std::vector<std::unique_ptr<Place>> m_places;
    std::string m_home; // where the copy goes; empty: nowhere
    bool m_openElsewhere = false;
    std::optional<Offer> m_offer;
    std::function<void()> m_offerChanged;

    QTimer m_watch; // while the user works or there is something to keep
    QTimer m_slices;
    QElapsedTimer m_sinceInput;
    QElapsedTimer m_sinceChange; // the first that the copy lacks
    std::chrono::milliseconds m_quiet{3000};
    std::chrono::milliseconds m_latest{60000};

    std::optional<RescueWriter> m_writer;
    Standing m_standing = Standing::Nothing;
    std::int64_t m_kept = -1;   // the revision of the tables that our copy holds
    std::int64_t m_failed = -1; // the one that could not be kept
    bool m_loading = false;

    // What was saved or loaded last.
    std::int64_t m_savedRevision = 0; // of the schedules
    std::int64_t m_savedState = 0;
    std::string m_savedAircraft; // as in their file
    std::int16_t m_mode = 0;     // 0: nothing was loaded yet
};

} // namespace vantor
