/*
 * q_shared.h -- definitions shared by the game, cgame and ui modules and by the
 * engine's interface to them. Every module includes this file first.
 */
#ifndef __Q_SHARED_H
#define __Q_SHARED_H

#define MAX_QPATH 64           // max length of a game pathname
#define MAX_STRING_CHARS 1024  // max length of a string passed to Cmd_TokenizeString
#define MAX_STRING_TOKENS 256  // max tokens resulting from Cmd_TokenizeString
#define MAX_CLIENTS 64         // absolute limit
#define GENTITYNUM_BITS 10     // don't need to send any more
#define MAX_GENTITIES (1 << GENTITYNUM_BITS)
#define MAX_STATS 16
#define MAX_PERSISTANT 16
#define MAX_POWERUPS 16
#define MAX_WEAPONS 16

typedef unsigned char byte;

typedef enum { qfalse, qtrue } qboolean;

typedef int qhandle_t;
typedef int sfxHandle_t;
typedef int fileHandle_t;
typedef int clipHandle_t;

typedef float vec_t;
typedef vec_t vec2_t[2];
typedef vec_t vec3_t[3];
typedef vec_t vec4_t[4];

/* The bodies of these follow further down; the trace and the cvar code refer
   to them before that. */
typedef struct cplane_s cplane_t;
typedef struct vmCvar_s vmCvar_t;

// plane_t structure
// !!! if this is changed, it must be changed in asm code too !!!
struct cplane_s {
	vec3_t normal;
	float dist;
	byte type;     // for fast side tests: 0,1,2 = axial, 3 = nonaxial
	byte signbits; // signx + (signy<<1) + (signz<<2), used as lookup during collision
	byte pad[2];
};

// nothing outside the Cvar_*() functions should modify these fields!
struct vmCvar_s {
	int handle;
	int modificationCount;
	float value;
	int integer;
	char string[MAX_STRING_CHARS];
};

// a trace is returned when a box is swept through the world
typedef struct {
	qboolean allsolid;   // if true, plane is not valid
	qboolean startsolid; // if true, the initial point was in a solid area
	float fraction;      // time completed, 1.0 = didn't hit anything
	vec3_t endpos;       // final position
	cplane_t plane;      // surface normal at impact, transformed to world space
	int surfaceFlags;    // surface hit
	int contents;        // contents on other side of surface hit
	int entityNum;       // entity the contacted surface is a part of
} trace_t;

// markfragments are returned by CM_MarkFragments()
typedef struct {
	int firstPoint;
	int numPoints;
} markFragment_t;

typedef struct {
	vec3_t origin;
	vec3_t axis[3];
} orientation_t;

typedef enum {
	TR_STATIONARY,
	TR_INTERPOLATE, // non-parametric, but interpolate between snapshots
	TR_LINEAR,
	TR_LINEAR_STOP,
	TR_SINE, // value = base + sin( time / duration ) * delta
	TR_GRAVITY
} trType_t;

typedef struct {
	trType_t trType;
	int trTime;
	int trDuration; // if non 0, trTime + trDuration = stop time
	vec3_t trBase;
	vec3_t trDelta; // velocity, etc
} trajectory_t;

// playerState_t is the information needed by both the client and server
// to predict player motion and actions
typedef struct playerState_s {
	int commandTime; // cmd->serverTime of last executed command
	int pm_type;
	int bobCycle; // for view bobbing and footstep generation
	int pm_flags; // ducked, jump_held, etc
	int pm_time;

	vec3_t origin;
	vec3_t velocity;
	int weaponTime;
	int gravity;
	int speed;
	int delta_angles[3]; // add to command angles to get view direction

	int groundEntityNum; // ENTITYNUM_NONE = in air
	int clientNum;       // ranges from 0 to MAX_CLIENTS-1
	int weapon;          // copied to entityState_t->weapon
	int weaponstate;

	vec3_t viewangles; // for fixed views
	int viewheight;

	int stats[MAX_STATS];
	int persistant[MAX_PERSISTANT]; // stats that aren't cleared on death
	int powerups[MAX_POWERUPS];     // level.time that the powerup runs out
	int ammo[MAX_WEAPONS];

	int ping; // server to game info for scoreboard
} playerState_t;

// usercmd_t is sent to the server each client frame
typedef struct usercmd_s {
	int serverTime;
	int angles[3];
	int buttons;
	byte weapon; // weapon
	signed char forwardmove, rightmove, upmove;
} usercmd_t;

// entityState_t is the information conveyed from the server
// in an update message about entities that the client will
// need to render in some way
typedef struct entityState_s {
	int number; // entity index
	int eType;  // entityType_t
	int eFlags;

	trajectory_t pos;  // for calculating position
	trajectory_t apos; // for calculating angles

	int time;
	int time2;

	vec3_t origin;
	vec3_t origin2;
	vec3_t angles;
	vec3_t angles2;

	int otherEntityNum; // shotgun sources, etc
	int groundEntityNum; // -1 = in air
	int modelindex;
	int clientNum; // 0 to (MAX_CLIENTS - 1), for players and corpses
	int frame;
	int solid; // for client side prediction, trap_linkentity sets this properly
	int event; // impulse events -- muzzle flashes, footsteps, etc
	int eventParm;
	int powerups; // bit flags
	int weapon;   // determines weapon and flash model, etc
	int legsAnim;
	int torsoAnim;
	int generic1;
} entityState_t;

typedef enum {
	CA_UNINITIALIZED,
	CA_DISCONNECTED, // not talking to a server
	CA_CONNECTING,   // sending request packets to the server
	CA_CHALLENGING,  // sending challenge packets to the server
	CA_CONNECTED,    // netchan_t established, getting gamestate
	CA_LOADING,      // only during cgame initialization, never during main loop
	CA_PRIMED,       // got gamestate, waiting for first frame
	CA_ACTIVE,       // game views should be displayed
	CA_CINEMATIC     // playing a cinematic or a static pic, not connected to a server
} connstate_t;

typedef struct qtime_s {
	int tm_sec;  /* seconds after the minute - [0,59] */
	int tm_min;  /* minutes after the hour - [0,59] */
	int tm_hour; /* hours since midnight - [0,23] */
	int tm_mday; /* day of the month - [1,31] */
	int tm_mon;  /* months since January - [0,11] */
	int tm_year; /* years since 1900 */
	int tm_wday; /* days since Sunday - [0,6] */
	int tm_yday; /* days since January 1 - [0,365] */
	int tm_isdst; /* daylight savings time flag */
} qtime_t;

// vector helpers (q_math.c)
vec_t VectorNormalize(vec3_t v);
void AngleVectors(const vec3_t angles, vec3_t forward, vec3_t right, vec3_t up);
float Q_rsqrt(float f);

// string helpers (q_shared.c)
int Q_stricmp(const char *s1, const char *s2);
void Q_strncpyz(char *dest, const char *src, int destsize);
char *va(char *format, ...);
void Com_sprintf(char *dest, int size, const char *fmt, ...);

#endif // __Q_SHARED_H
