/** The version of the installed program, for crash reports: `strings libvesk_core.so | grep VESK_`.
 */
extern const char vesk_version[];
const char vesk_version[] = "VESK_VERSION=" VESK_VERSION_TEXT;
