// How long the map of motion vectors takes, on whatever screen is installed.
#pragma once

void RegisterMapBenchmarks();
