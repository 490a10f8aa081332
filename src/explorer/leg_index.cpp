#include "explorer/leg_index.h"

#include "core/tables.h"

#include <algorithm>

namespace vantor {

namespace {
constexpr std::size_t rowsBetweenLooks = 512;
} // namespace

void LegIndex::start(const Filter& filter, RowKind kind, const std::vector<LegNumber>* order) {
    m_matcher = LegMatcher(filter);
    m_kind = kind;
    m_order = order;
    m_next = 0;
    m_done = false;
    m_legs.clear();
    m_schedules.clear();
}

bool LegIndex::step(const std::function<bool()>& enough) {
    while (!m_done) {
        const std::size_t end = std::min(size(), m_next + rowsBetweenLooks);
        for (; m_next < end; ++m_next) {
            if (m_order == nullptr) {
                lookAtSchedule(static_cast<std::int32_t>(m_next) + 1);
            } else if (m_kind == RowKind::Legs) {
                lookAtLeg((*m_order)[m_next]);
            } else {
                lookAtSchedule(legAt((*m_order)[m_next]).recnum);
            }
        }
        m_done = m_next >= size();
        if (enough()) {
            break;
        }
    }
    return m_done;
}

double LegIndex::progress() const noexcept {
    return m_done ? 1.0 : static_cast<double>(m_next) / static_cast<double>(std::max<std::size_t>(1, size()));
}

std::size_t LegIndex::size() const noexcept {
    const std::int32_t count = std::clamp(schedulecount, 0, mostSchedulesNumbered);
    return m_order == nullptr ? static_cast<std::size_t>(count) : m_order->size();
}

void LegIndex::lookAtLeg(LegNumber number) {
    const ScheduleRec* const schedule = scheduleOf(number);
    const LegRec* const leg = schedule == nullptr ? nullptr : legOf(*schedule, number);
    if (leg != nullptr && m_matcher.matches(legAt(number).recnum, *schedule, *leg)) {
        m_legs.push_back(number);
    }
}

void LegIndex::lookAtSchedule(std::int32_t recnum) {
    const LegNumber own = legNumber({recnum, 0});
    const ScheduleRec* const schedule = scheduleOf(own);
    if (schedule == nullptr) {
        return;
    }
    const std::size_t before = m_legs.size();
    LegId id{recnum, 0};
    for (const LegRec& leg : numberedLegs(*schedule)) {
        ++id.leg;
        if (m_matcher.matches(recnum, *schedule, leg)) {
            m_legs.push_back(legNumber(id));
        }
    }
    if (m_kind == RowKind::Schedules &&
        (m_legs.size() > before || (id.leg == 0 && m_matcher.matches(recnum, *schedule)))) {
        m_schedules.push_back(own);
    }
}

} // namespace vantor
