# kelvalr_precompile(<target> [<header>...]): parses once what nearly every source includes, and the headers named.
# The debug preset builds without: it finds a source that forgets to include what it uses.
function(kelvalr_precompile target)
    target_precompile_headers(${target} PRIVATE ${ARGN}
        <algorithm> <array> <chrono> <expected> <functional> <memory> <optional> <utility> <vector>
        <QByteArray> <QDir> <QFile> <QHash> <QJsonDocument> <QJsonObject> <QList> <QObject>
        <QPointer> <QString> <QStringList> <QTimer> <QUrl>)
    # A timestamp in it would keep the compiler cache from knowing it again.
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()
