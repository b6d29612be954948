# frmGraph's points and their chart: Qt Charts draws, Qt Svg writes SVG files.
target_sources(kvlr_reports PRIVATE GraphData.cpp GraphChart.cpp)
target_link_libraries(kvlr_reports PUBLIC kvlr_meets Qt6::Charts PRIVATE Qt6::Svg)
