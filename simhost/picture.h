// simhost/picture.h
// The project as one line of text, for tests that compare all of it at once.
//
//     Voz: A 2-6 | B 6-9 @1.5 / Guitarra (armed) : [R1 Refrao 2-6]
//
// Tracks are parted by " / ", items by " | ", in the host's order. An item is its name, start and end, and then, only
// where they differ from the plain ones, in this order:
//     @1.5      the active take's start offset          x2        its play rate
//     vol 0.5   the item's volume                       take 2/3  the active take, 1-based, of how many
//     /0.1 \0.2 fade-in and fade-out                    ~/0.005 ~\0.005  automatic ones
//     mute, lock, group N, envelope, midi, no take, no source
//     #rrggbb   the custom colour; an override without its flag bit shows as #raw N
//     *         selected (Everything only)
// A track's marks stand in brackets behind its name: armed N, fx off, height N, #rrggbb, selected
// (Everything only). Markers and regions follow as [M1 name 3] and [R1 name 2-6], a colour behind the times.
// Everything adds {cursor 3}, {time 2-6}, {loop 2-6}, {view 0-60} and {play 1} where they are not as in a new project.
#pragma once
#include <string>

namespace simhost {

class Host;
enum class Show { Content, Everything };  // Content is what undo covers, without the selection
std::string Picture(Host& host, Show show = Show::Content);
std::string Number(double value);  // nine digits at most; never "-0"

}  // namespace simhost
