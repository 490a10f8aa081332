#include "explorer/frmExplorer.h"

#include "explorer/frmChecks.h"
#include "explorer/frmFlights.h"
#include "explorer/frmRoutes.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "ui_frmExplorer.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>
#include <memory>

namespace vantor {

namespace {

constexpr int firstSliceMilliseconds = 40; // enough for the rows that can be seen
constexpr int sliceMilliseconds = 15;
constexpr StandardTrap trap{"explorer", "frmExplorer"};

bool asksForDeleted(const Filter& filter) {
    return std::ranges::any_of(filter.terms(), [](const FilterTerm& term) {
        return term.field == FilterField::State && term.state == LegState::Deleted && !term.negated;
    });
}

} // namespace

frmExplorer::frmExplorer(QWidget* parent)
    : QWidget(parent, Qt::Window), m_ui(std::make_unique<Ui::frmExplorer>()), m_flights(new frmFlights),
      m_routes(new frmRoutes), m_checks(new frmChecks) {
    m_ui->setupUi(this);
    m_ui->tabs->addTab(m_flights, tr("Flig&hts"));
    m_ui->tabs->addTab(m_routes, tr("&Routes"));
    m_ui->tabs->addTab(m_checks, tr("Chec&ks"));
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, [this] { trap(&frmExplorer::goOn, this); });
    connect(m_ui->txtFilter, &QLineEdit::textChanged, this, [this] {
        m_filter = Filter(fromQString(m_ui->txtFilter->text()));
        showTerms();
        search();
    });
    connect(m_flights, &frmFlights::listingWanted, this, [this] { search(); });
    const auto narrow = [this](const QString& terms) {
        const std::string text = fromQString(m_ui->txtFilter->text());
        m_ui->txtFilter->setText(toQString(narrowedFilter(text, fromQString(terms))));
    };
    connect(m_flights, &frmFlights::filterWanted, this, narrow);
    connect(m_routes, &frmRoutes::filterWanted, this, narrow);
    connect(m_checks, &frmChecks::filterWanted, this, narrow);
    connectKeys();
    m_ui->txtFilter->setFocus();
}

frmExplorer::~frmExplorer() = default;

void frmExplorer::connectKeys() {
    const auto key = [this](const QKeySequence& keys, auto&& handler) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, handler);
    };
    key(Qt::Key_Escape, [this] {
        m_ui->txtFilter->clear();
        m_ui->txtFilter->setFocus();
    });
    key(QKeySequence::Find, [this] {
        m_ui->txtFilter->setFocus();
        m_ui->txtFilter->selectAll();
    });
    key(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
    for (int page = 0; page < m_ui->tabs->count(); ++page) {
        key(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + page)), [this, page] {
            m_ui->tabs->setCurrentIndex(page);
            focusPage();
        });
    }
    m_ui->txtFilter->installEventFilter(this);
}

// From the filter down into what it leaves.
bool frmExplorer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_ui->txtFilter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
            focusPage();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// Into the table, the map or the findings.
void frmExplorer::focusPage() {
    if (m_ui->tabs->currentWidget() == m_flights) {
        m_flights->focusTable();
    } else {
        m_ui->tabs->currentWidget()->setFocus(Qt::ShortcutFocusReason);
    }
}

void frmExplorer::setCommands(const ExplorerCommands& commands) {
    m_flights->setCommands(commands);
    m_checks->setCommands(commands);
}

void frmExplorer::showProgress(double done) {
    m_ui->prgSearch->setVisible(done < 1);
    m_ui->prgSearch->setValue(static_cast<int>(done * 1000));
}

void frmExplorer::open(const QString& filter) {
    if (!filter.isEmpty()) {
        m_ui->txtFilter->setText(filter);
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void frmExplorer::tablesChanged() {
    m_stale = true;
    if (isVisible()) {
        m_stale = false;
        m_flights->dropOrder();
        m_routes->setLegs(0, {}, false);
        m_checks->tablesChanged();
        search();
    }
}

void frmExplorer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_stale) {
        tablesChanged();
    }
}

// The rows that can be seen come at once, and the others while there is nothing else to do.
void frmExplorer::search() {
    if (!isVisible()) {
        m_stale = true;
        return;
    }
    trap([this] {
        m_index.start(m_filter, m_flights->kind(), m_flights->order());
        QElapsedTimer watch;
        watch.start();
        m_index.step([&] { return watch.elapsed() >= firstSliceMilliseconds; });
    });
    m_flights->showRows(m_index.rows());
    m_checks->setFilter(m_filter);
    if (m_index.done()) {
        searched();
    } else {
        m_ui->prgSearch->show();
        m_timer.start();
    }
}

void frmExplorer::goOn() {
    if (host().pumping()) {
        return; // inside a command, which may be in the midst of changing the tables
    }
    QElapsedTimer watch;
    watch.start();
    m_index.step([&] { return watch.elapsed() >= sliceMilliseconds; });
    m_ui->prgSearch->setValue(static_cast<int>(m_index.progress() * 1000));
    if (m_index.done()) {
        searched();
    } else {
        m_flights->showMore(false);
    }
}

void frmExplorer::searched() {
    m_timer.stop();
    m_ui->prgSearch->hide();
    m_flights->showMore(true);
    // A copy of its own: the map goes on counting while the next filter is typed.
    const auto legs = std::make_shared<const std::vector<LegNumber>>(m_index.legs());
    m_routes->setLegs(
        legs->size(), [legs](std::size_t at) { return legAt((*legs)[at]); }, asksForDeleted(m_filter));
}

// What is active, each with a button that takes it out.
void frmExplorer::showTerms() {
    QLayout& layout = *m_ui->termsLayout;
    while (QLayoutItem* const item = layout.takeAt(0)) {
        if (QWidget* const chip = item->widget()) {
            chip->hide();
            chip->setParent(nullptr);
            chip->deleteLater(); // it may be the one that was clicked
        }
        delete item;
    }
    for (std::size_t i = 0; i < m_filter.terms().size(); ++i) {
        auto* const chip = new QToolButton(m_ui->terms);
        const QString typed = toQString(m_filter.terms()[i].typed);
        chip->setText(typed + QStringLiteral(" \u00D7"));
        chip->setToolTip(tr("Take %1 out of the filter").arg(typed));
        chip->setAccessibleName(chip->toolTip());
        connect(chip, &QToolButton::clicked, this, [this, i] {
            m_ui->txtFilter->setText(toQString(filterWithout(fromQString(m_ui->txtFilter->text()), i)));
            m_ui->txtFilter->setFocus();
        });
        layout.addWidget(chip);
        chip->show();
    }
    m_ui->termsLayout->addStretch();
    m_ui->scrTerms->setVisible(!m_filter.empty());
    m_ui->scrTerms->setFixedHeight(m_ui->terms->sizeHint().height() + 2);
}

} // namespace vantor
