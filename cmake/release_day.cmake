# From CHROMALOG_RELEASE_DATE (YYYY-MM-DD) what pages and packages call it. Nothing here asks a clock: every build of a
# version has the same bytes.
if(NOT CHROMALOG_RELEASE_DATE MATCHES "^([0-9][0-9][0-9][0-9])-0?([0-9]+)-0?([0-9]+)$")
  message(FATAL_ERROR "CHROMALOG_RELEASE_DATE is no day: ${CHROMALOG_RELEASE_DATE}")
endif()
set(year ${CMAKE_MATCH_1})
set(month ${CMAKE_MATCH_2})
set(day ${CMAKE_MATCH_3})
# Years that begin in March end with the day that leap years add.
math(EXPR year "${year} - (14 - ${month}) / 12")
math(EXPR month "(${month} + 9) % 12")
math(EXPR days "365 * ${year} + ${year} / 4 - ${year} / 100 + ${year} / 400 + (153 * ${month} + 2) / 5 + ${day} - 719469")
math(EXPR CHROMALOG_RELEASE_SECONDS "86400 * ${days} + 43200") # noon, UTC, since 1970

set(clock "$ENV{SOURCE_DATE_EPOCH}")
set(ENV{SOURCE_DATE_EPOCH} ${CHROMALOG_RELEASE_SECONDS}) # the time that string(TIMESTAMP) tells
string(TIMESTAMP CHROMALOG_RELEASE_DAY "%Y-%m-%d" UTC)
string(TIMESTAMP CHROMALOG_MAN_DATE "%B %d, %Y" UTC)
string(REPLACE " 0" " " CHROMALOG_MAN_DATE "${CHROMALOG_MAN_DATE}")
string(TIMESTAMP CHROMALOG_DEBIAN_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
if(clock STREQUAL "")
  unset(ENV{SOURCE_DATE_EPOCH})
else()
  set(ENV{SOURCE_DATE_EPOCH} ${clock})
endif()
if(NOT CHROMALOG_RELEASE_DAY STREQUAL CHROMALOG_RELEASE_DATE)
  message(FATAL_ERROR "CHROMALOG_RELEASE_DATE is no day of the calendar: ${CHROMALOG_RELEASE_DATE}")
endif()
