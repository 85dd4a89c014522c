# Lists of headers that most sources of a kind read; the compiler reads each list once for all of them:
#
#   veyra_precompile(TARGET PRIVATE ${VEYRA_WINDOW_HEADERS})
#   veyra_precompile(OTHER REUSE_FROM TARGET)
#
# OTHER needs every compile definition of TARGET, or GCC does not take TARGET's list.
#
# A source includes what it uses all the same: ./check builds without the lists, to see that it does.
# The floors without windows save little by a list, and have none.

set(VEYRA_STANDARD_HEADERS <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory>
  <optional> <set> <string> <string_view> <utility> <vector>)
set(VEYRA_WINDOW_HEADERS ${VEYRA_STANDARD_HEADERS} <QAction> <QApplication> <QGridLayout> <QLabel>
  <QMainWindow> <QMenuBar> <QMouseEvent> <QPainter> <QPushButton> <QScreen> <QScrollBar> <QShortcut>
  <QTableWidget> <QTimer> <QVBoxLayout>)
set(VEYRA_TEST_HEADERS ${VEYRA_STANDARD_HEADERS} <gtest/gtest.h>)
set(VEYRA_WINDOW_TEST_HEADERS ${VEYRA_WINDOW_HEADERS} <QTest> <gtest/gtest.h>)

# A cache before the compiler does the same for whole sources, and cannot where a list comes first.
if(CMAKE_CXX_COMPILER_LAUNCHER OR VEYRA_FUZZ)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# Of headers that are read beforehand GCC's optimizer warns of what is not so, so that need not stop a
# build: in what is inlined from them it takes a string that is short for one that is long.
function(veyra_precompile target)
  target_precompile_headers(${target} ${ARGN})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    foreach(doubtful array-bounds maybe-uninitialized restrict stringop-overflow stringop-overread)
      target_compile_options(${target} PRIVATE -Wno-error=${doubtful})
    endforeach()
  endif()
endfunction()
