# Headers that most files read, compiled once for each kind of target, which halves the time of a build. Only a matter
# of time: every file still includes what it uses, to which the presets without them (tidy, headless, fuzz) hold it.

option(DECANT_PRECOMPILED "Compile with precompiled headers" OFF)

set(decant_precompiled_core
  <QByteArray> <QDir> <QFile> <QFileInfo> <QHash> <QJsonObject> <QList> <QObject> <QString>
  <QStringList> <QUrl> <QVariant> <algorithm> <array> <chrono> <functional> <memory> <optional>)
set(decant_precompiled_test <QTest> <QSignalSpy> <QTemporaryDir> <QRegularExpression>
  ${decant_precompiled_core})
set(decant_precompiled_nettest ${decant_precompiled_test})
set(decant_precompiled_desktop ${decant_precompiled_core} <QApplication> <QLabel> <QPainter>
  <QPushButton> <QWidget>)
set(decant_precompiled_guitest ${decant_precompiled_test} <QAbstractItemView> <QApplication>
  <QComboBox> <QLabel> <QPushButton> <QWidget>)
set(decant_precompiled_guinettest ${decant_precompiled_guitest})

set(decant_precompiled_links_core Qt6::Core)
set(decant_precompiled_links_test Qt6::Core Qt6::Test)
set(decant_precompiled_links_nettest Qt6::Network Qt6::Test)
set(decant_precompiled_links_desktop Qt6::Widgets)
set(decant_precompiled_links_guitest Qt6::Widgets Qt6::Test)
set(decant_precompiled_links_guinettest Qt6::Widgets Qt6::Network Qt6::Test)

# decant_precompile(TARGET core|desktop|test|nettest|guitest|guinettest): the kind must link what the target links, as far as
# <QTest> looks at it; the compiler says when it does not.
function(decant_precompile target kind)
  if(NOT DECANT_PRECOMPILED)
    return()
  endif()
  set(owner decant_precompiled_${kind}_owner)
  if(NOT TARGET ${owner})
    set(source ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "")
    add_library(${owner} OBJECT ${source})
    set_target_properties(${owner} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${owner} PRIVATE ${decant_precompiled_links_${kind}} decant_strict)
    target_precompile_headers(${owner} PRIVATE ${decant_precompiled_${kind}})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()
