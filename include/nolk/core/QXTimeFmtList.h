/** @file
 * One component of a format for dates and times.
 */
#ifndef NOLK_CORE_QX_TIME_FMT_LIST_H
#define NOLK_CORE_QX_TIME_FMT_LIST_H

namespace nolk {

/**
 * A node of the list of components that a LocaleTimeFormat has, in the order in which they stand.
 */
struct QXTimeFmtList {
    QXTimeFmtList* next;
    /** An index into "YyjSMIHmBbAapdZUWw"; 18 and 19 are the day and the month padded by a blank.
     */
    int component;
    /** Where it stands in the text of the format, in which no component has any length. */
    int offset;
};

}  // namespace nolk

#endif
