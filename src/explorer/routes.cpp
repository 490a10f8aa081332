#include "explorer/routes.h"

#include "core/aircraft_table.h"
#include "core/tables.h"
#include "foundation/numbers.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace vantor {

namespace {

std::uint64_t numberOf(const FixedText<6>& code) {
    std::uint64_t number = 0;
    std::memcpy(&number, code.raw().data(), code.raw().size());
    return number;
}

// Where each of `count` things goes when they are put into an order: places[old] = new.
template <class Before>
std::vector<std::uint32_t> placesInOrder(std::size_t count, const Before& before) {
    std::vector<std::uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, before);
    std::vector<std::uint32_t> places(count);
    for (std::uint32_t place = 0; place < count; ++place) {
        places[order[place]] = place;
    }
    return places;
}

template <class Thing>
void rearrange(std::vector<Thing>& things, const std::vector<std::uint32_t>& places) {
    std::vector<Thing> arranged(things.size());
    for (std::size_t i = 0; i < things.size(); ++i) {
        arranged[places[i]] = std::move(things[i]);
    }
    things = std::move(arranged);
}

// By importance; the network's lists refer to each other by place, so that the routes follow.
void order(RouteNetwork& network) {
    const std::vector<RouteAirport>& airportList = network.airports;
    const auto airportPlaces = placesInOrder(airportList.size(), [&](std::uint32_t a, std::uint32_t b) {
        const double difference = airportList[a].movements() - airportList[b].movements();
        return difference != 0 ? difference > 0 : airportList[a].code.raw() < airportList[b].code.raw();
    });
    const std::vector<RouteType>& types = network.types;
    const auto typePlaces = placesInOrder(types.size(), [&](std::uint32_t a, std::uint32_t b) {
        const double difference = types[a].flights - types[b].flights;
        return difference != 0 ? difference > 0 : types[a].title < types[b].title;
    });
    for (Route& route : network.routes) {
        route.first = airportPlaces[route.first];
        route.second = airportPlaces[route.second];
        for (RouteUse& use : route.uses) {
            use.type = typePlaces[use.type];
        }
        std::ranges::sort(route.uses, [](const RouteUse& a, const RouteUse& b) {
            return a.flights != b.flights ? a.flights > b.flights : a.type < b.type;
        });
    }
    rearrange(network.airports, airportPlaces);
    rearrange(network.types, typePlaces);
}

} // namespace

double flightsInWeek(const ScheduleRec& schedule) noexcept {
    constexpr double hoursOfWeek = 168;
    const double hours = schedule.weekly ? hoursOfWeek : val(schedule.period.text());
    return hours > 0 ? hoursOfWeek / hours : 1;
}

void RouteTally::add(LegId id) {
    const ScheduleRec& schedule = schedules.peek(id.recnum);
    const LegRec& leg = schedule.legs[id.leg];
    if ((leg.deleted || schedule.deleted) && !m_withDeleted) {
        return;
    }
    if (id.recnum != m_recnum) {
        m_recnum = id.recnum;
        m_type = typeOf(schedule);
        m_flights = flightsInWeek(schedule);
    }
    const std::uint32_t from = airportOf(leg.fromicao);
    const std::uint32_t to = airportOf(leg.toicao);
    RouteAirport& origin = m_network.airports[from];
    RouteAirport& destination = m_network.airports[to];
    origin.departures += m_flights;
    destination.arrivals += m_flights;
    m_network.flights += m_flights;
    m_network.types[m_type].flights += m_flights;
    if (!origin.known || !destination.known) {
        m_network.unplaced += m_flights;
    } else if (from != to) {
        const bool onward = origin.code.raw() < destination.code.raw();
        Link& link = onward ? linkOf(from, to) : linkOf(to, from);
        (onward ? link.out : link.back) += m_flights;
        countUse(link, m_type, m_flights);
    }
}

std::uint32_t RouteTally::airportOf(const FixedText<6>& code) {
    const auto [found, isNew] =
        m_airportOf.try_emplace(numberOf(code), static_cast<std::uint32_t>(m_network.airports.size()));
    if (isNew) {
        RouteAirport airport;
        airport.code = code;
        const AirportRec* const record = airports.findInPlace(code.text());
        if (record != nullptr && record->icao.text() != "-1") {
            airport.known = true;
            airport.place = {record->latdeg, record->longdeg};
        }
        m_network.airports.push_back(airport);
    }
    return found->second;
}

std::uint32_t RouteTally::typeOf(const ScheduleRec& schedule) {
    const std::string code(schedule.acnum.text());
    const auto [known, isNewCode] = m_typeOfCode.try_emplace(code, 0U);
    if (isNewCode) {
        const std::string title = aircrafttitle(code);
        const auto [found, isNew] = m_typeOf.try_emplace(title, static_cast<std::uint32_t>(m_network.types.size()));
        if (isNew) {
            m_network.types.push_back({title, 0});
        }
        known->second = found->second;
    }
    return known->second;
}

RouteTally::Slot& RouteTally::slotOf(std::uint64_t key) noexcept {
    const std::uint64_t mixed = key * 0x9E3779B97F4A7C15ULL; // Fibonacci hashing: Knuth, vol. 3, section 6.4
    std::size_t at = (mixed >> 20U) & (m_slots.size() - 1);
    while (m_slots[at].key != 0 && m_slots[at].key != key) {
        at = (at + 1) & (m_slots.size() - 1);
    }
    return m_slots[at];
}

void RouteTally::grow() {
    std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(std::max<std::size_t>(1024, m_slots.size() * 2)));
    for (const Slot& slot : old) {
        if (slot.key != 0) {
            slotOf(slot.key) = slot;
        }
    }
}

RouteTally::Link& RouteTally::linkOf(std::uint32_t first, std::uint32_t second) {
    if (m_links.size() * 2 >= m_slots.size()) {
        grow();
    }
    Slot& slot = slotOf((std::uint64_t{first} << 32U | second) + 1);
    if (slot.key == 0) {
        slot = {(std::uint64_t{first} << 32U | second) + 1, static_cast<std::uint32_t>(m_links.size())};
        m_links.push_back({first, second});
        ++m_network.airports[first].routes;
        ++m_network.airports[second].routes;
    }
    return m_links[slot.link];
}

void RouteTally::countUse(Link& link, std::uint32_t type, double flights) {
    for (std::uint32_t at = link.uses; at != 0; at = m_uses[at - 1].next) {
        if (m_uses[at - 1].use.type == type) {
            m_uses[at - 1].use.flights += flights;
            return;
        }
    }
    m_uses.push_back({{type, flights}, link.uses});
    link.uses = static_cast<std::uint32_t>(m_uses.size());
}

Route RouteTally::routeOf(const Link& link) const {
    Route route{link.first, link.second, link.out, link.back, {}};
    for (std::uint32_t at = link.uses; at != 0; at = m_uses[at - 1].next) {
        route.uses.push_back(m_uses[at - 1].use);
    }
    return route;
}

RouteNetwork RouteTally::take(std::size_t mostRoutes) {
    const auto busier = [this](const Link& a, const Link& b) {
        const double difference = (a.out + a.back) - (b.out + b.back);
        if (difference != 0) {
            return difference > 0;
        }
        const auto codes = [this](const Link& link) {
            return std::pair(m_network.airports[link.first].code.raw(), m_network.airports[link.second].code.raw());
        };
        return codes(a) < codes(b);
    };
    const std::size_t kept = std::min(mostRoutes, m_links.size());
    m_network.routeCount = m_links.size();
    std::ranges::partial_sort(m_links, m_links.begin() + static_cast<std::ptrdiff_t>(kept), busier);
    for (std::size_t i = 0; i < kept; ++i) {
        m_network.routes.push_back(routeOf(m_links[i]));
    }
    order(m_network);
    RouteNetwork network = std::move(m_network);
    *this = RouteTally(m_withDeleted);
    return network;
}

} // namespace vantor
