// tests/support/portrait.h
// The living host's project as one line of text, for tests that compare all of it at once.
//
//     Voz: A 2-6 | B 6-9 @1.5 / Guitarra (armed) : [R1 Refrao 2-6]
//
// Tracks are parted by " / ", items by " | ", in the host's order. An item is its name, start and end, and then, only
// where they differ from the plain ones, in this order:
//     @1.5      the active take's start offset          x2        its play rate
//     take 2/3  the active take, 1-based, of how many   ~/0.005 ~\0.005  fade-in and fade-out
//     mute, lock, envelope, midi, no take, no source
//     #rrggbb   the custom colour; an override without its flag bit shows as #raw N
//     *         selected (RetratoCompleto only)
// A track's marks stand in brackets behind its name: armed N, fx off, height N, #rrggbb, selected (RetratoCompleto
// only). Markers and regions follow as [M1 name 3] and [R1 name 2-6], a colour behind the times. RetratoCompleto adds
// {cursor 3}, {time 2-6}, {loop 2-6}, {view 0-60} and {play 1} where they are not as in a new project.
#pragma once
#include <string>

std::string Retrato();  // what undo covers, without the selection
std::string RetratoCompleto();
std::string Numero(double valor);  // nine digits at most; never "-0"
