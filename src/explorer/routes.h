// Explorer: all flights in one table, on a world map, and checked.
// The network of some legs: their airports, the routes between these, and how often each is flown in a week.
#pragma once

#include "core/records.h"
#include "explorer/projection.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantor {

/// How often a leg of a schedule is flown in a week: once in a weekly schedule, and 168 hours by the hours of its
/// repeat in any other (24Hr gives 7). A repeat without a number above 0 counts once.
[[nodiscard]] double flightsInWeek(const ScheduleRec& schedule) noexcept;

/// An airport that a leg touches.
struct RouteAirport {
    FixedText<6> code;
    GeoPoint place;
    double departures = 0;    ///< in a week
    double arrivals = 0;      ///< in a week
    std::uint32_t routes = 0; ///< that begin or end here
    bool known = false;       ///< stands in the airport table; only then it has a place
    [[nodiscard]] double movements() const noexcept { return departures + arrivals; }
};

/// An aircraft title, or the code of an aircraft that the table lacks.
struct RouteType {
    std::string title;
    double flights = 0; ///< in a week
};

/// How much of a route an aircraft type flies.
struct RouteUse {
    std::uint32_t type = 0; ///< in RouteNetwork::types
    double flights = 0;     ///< in a week, both ways
};

/// Two airports that are linked by a leg, in the order of their codes.
struct Route {
    std::uint32_t first = 0;    ///< in RouteNetwork::airports
    std::uint32_t second = 0;   ///< in RouteNetwork::airports
    double out = 0;             ///< flights from the first to the second in a week
    double back = 0;            ///< flights from the second to the first in a week
    std::vector<RouteUse> uses; ///< the type that flies most first
    [[nodiscard]] double flights() const noexcept { return out + back; }
};

/// Routes and airports stand in the order of their importance: the most flights and movements first, equals by code.
struct RouteNetwork {
    std::vector<RouteAirport> airports;
    std::vector<RouteType> types; ///< the one with the most flights first, equals by title
    std::vector<Route> routes;    ///< the busiest ones between two known airports
    std::size_t routeCount = 0;   ///< of all between two known airports
    double flights = 0;           ///< of all legs in a week
    double unplaced = 0;          ///< of these, the ones from or to an airport that the table lacks
};

/// Takes legs one by one and makes the network of them. The tables must not change meanwhile.
class RouteTally {
  public:
    /// A deleted leg, or one of a deleted schedule, counts only `withDeleted`.
    explicit RouteTally(bool withDeleted) : m_withDeleted(withDeleted) {}

    /// Counts one leg. One that is not in the tables is error 9.
    void add(LegId id);
    /// The network of all that was added, with at most `mostRoutes` routes. The tally is empty then.
    [[nodiscard]] RouteNetwork take(std::size_t mostRoutes);

  private:
    // The uses of a route are a chain through one array: most routes have one or two.
    struct Use {
        RouteUse use;
        std::uint32_t next = 0; // its number from 1, 0 for the last
    };
    struct Link {
        std::uint32_t first = 0;
        std::uint32_t second = 0;
        std::uint32_t uses = 0;
        double out = 0;
        double back = 0;
    };
    // From pairs of airports to links: one array, a power of two long and at most half full.
    struct Slot {
        std::uint64_t key = 0; // 0: free
        std::uint32_t link = 0;
    };

    [[nodiscard]] std::uint32_t airportOf(const FixedText<6>& code);
    [[nodiscard]] std::uint32_t typeOf(const ScheduleRec& schedule);
    [[nodiscard]] Link& linkOf(std::uint32_t first, std::uint32_t second);
    [[nodiscard]] Slot& slotOf(std::uint64_t key) noexcept;
    void grow();
    void countUse(Link& link, std::uint32_t type, double flights);
    [[nodiscard]] Route routeOf(const Link& link) const;

    bool m_withDeleted;
    std::int32_t m_recnum = 0; // the schedule that was added last, with its type and flights
    std::uint32_t m_type = 0;
    double m_flights = 0;
    RouteNetwork m_network;
    std::vector<Link> m_links;
    std::vector<Slot> m_slots;
    std::vector<Use> m_uses;
    std::unordered_map<std::uint64_t, std::uint32_t> m_airportOf; // by the six bytes of the code
    std::unordered_map<std::string, std::uint32_t> m_typeOf;      // by title
    std::unordered_map<std::string, std::uint32_t> m_typeOfCode;  // by the aircraft's code
};

} // namespace vantor
