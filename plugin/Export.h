// Export.h - marks the functions and tables that the bundle exports under their plain C names.
#pragma once

#ifdef __cplusplus
#define PDE_EXPORT extern "C" __attribute__((visibility("default")))
#else
#define PDE_EXPORT extern __attribute__((visibility("default")))
#endif
