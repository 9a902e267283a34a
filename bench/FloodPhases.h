#pragma once
// A dialog under a flood, phase by phase (1 kHz, 8 kHz, full pace): how often a watched window and
// the busiest window of the thread repainted a second, how many messages were taken, and whether
// those waiting in the queue grew; the same flood into a bare window for comparison.
#include <windows.h>

#include "FloodPump.h"

struct FloodPhase {
    const char* name;
    double rate;   // 0: full pace
    double reportsPerSecond = 0;
    double watchedPaintsPerSecond = 0;
    double busiestPaintsPerSecond = 0;
    long long waitingAfterFirstSecond = 0;
    long long waitingAtEnd = 0;
    long long mostWaiting = 0;
};

// Counts the paints of every window of this thread for its life.
class PaintCounting {
public:
    PaintCounting();
    ~PaintCounting();
    PaintCounting(const PaintCounting&) = delete;
    PaintCounting& operator=(const PaintCounting&) = delete;

private:
    HHOOK m_queued;
    HHOOK m_sent;
};

class FloodPhases {
public:
    static constexpr double kPhaseSeconds = 3.0;

    // Runs one phase of the flood with the thread's own message loop; watched: the window whose
    // paints count apart (null for none). Paints are counted while a PaintCounting lives.
    static void run(HWND watched, FloodPump& flood, FloodPhase& phase);
    // The phases' figures against the display's rate and the bare window's phases.
    static void print(const char* what, const char* watched, const FloodPhase* phases, const FloodPhase* bare,
                      int count, int displayHz);
};
