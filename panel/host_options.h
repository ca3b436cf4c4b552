// panel/host_options.h
// The host's options that the panel needs for its way of working.
#pragma once

// Snapping, grid lines and the questions after a recording go off; run at each opening of the panel, without undo.
void PrepararHost();
