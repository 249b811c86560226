# Headers of the toolkit and of the test library take longer to read than most sources to compile, so a target reads
# them once. Its sources include what they need all the same: the fuzzer's build does without.
set(KVQ_COMMON_HEADERS <algorithm> <array> <functional> <memory> <optional> <string> <string_view> <vector> <QObject> <QString>)
set(KVQ_TEST_HEADERS ${KVQ_COMMON_HEADERS} <gmock/gmock.h> <gtest/gtest.h>)
