package com.korvane.signpad;

/**
 * What the library knows of the model, and the pressure range of this very pad.
 *
 * @param vendor the maker
 * @param product the model
 * @param width of the writing area, in raw units
 * @param height of the writing area, in raw units
 * @param maxPressure the largest pressure that the pad reports
 */
public record PadInfo(String vendor, String product, int width, int height, int maxPressure) {}
