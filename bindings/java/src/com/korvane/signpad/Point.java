package com.korvane.signpad;

import java.time.Instant;

/**
 * One point of the ink, in the pad's raw units. A stroke is closed by a copy of its last point with strokeEnd set.
 *
 * @param x raw units from the left
 * @param y raw units from the top
 * @param pressure raw pressure
 * @param strokeEnd whether it closes a stroke
 * @param tick milliseconds of a clock that nobody sets
 * @param time the wall clock's second
 */
public record Point(int x, int y, int pressure, boolean strokeEnd, long tick, Instant time) {}
