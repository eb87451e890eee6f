// bg_public.h -- definitions shared by both the server game and client game modules

// because games can change separately from the main system version, we need a
// second version that must match between game and cgame
#define GAME_VERSION "modbase-1"

#define DEFAULT_GRAVITY 800
#define GIB_HEALTH -40
#define ARMOR_PROTECTION 0.66

#define MAX_ITEMS 256

#define DEFAULT_VIEWHEIGHT 26
#define CROUCH_VIEWHEIGHT 12

typedef enum {
	GT_FFA,        // free for all
	GT_TOURNAMENT, // one on one tournament
	GT_SINGLE_PLAYER, // single player ffa

	//-- team games go after this --

	GT_TEAM, // team deathmatch
	GT_CTF,  // capture the flag

	GT_MAX_GAME_TYPE
} gametype_t;

typedef enum { GENDER_MALE, GENDER_FEMALE, GENDER_NEUTER } gender_t;

typedef enum { TEAM_FREE, TEAM_RED, TEAM_BLUE, TEAM_SPECTATOR, TEAM_NUM_TEAMS } team_t;

/*
===================================================================================

PMOVE MODULE

The pmove code takes a player_state_t and a usercmd_t and generates a new
player_state_t and some other output data. Used for local prediction on the
client game and true movement on the server game.
===================================================================================
*/

typedef enum {
	PM_NORMAL,    // can accelerate and turn
	PM_NOCLIP,    // noclip movement
	PM_SPECTATOR, // still run into walls
	PM_DEAD,      // no acceleration or turning, but free falling
	PM_FREEZE,    // stuck in place with no control
	PM_INTERMISSION, // no movement or status bar
	PM_SPINTERMISSION // no movement or status bar
} pmtype_t;

#define MAXTOUCH 32
typedef struct {
	// state (in / out)
	playerState_t *ps;

	// command (in)
	usercmd_t cmd;
	int tracemask; // collide against these types of surfaces
	int debugLevel; // if set, diagnostic output will be printed
	qboolean noFootsteps; // if the game is setup for no footsteps by the server
	qboolean gauntletHit; // true if a gauntlet attack would actually hit something

	int framecount;

	// results (out)
	int numtouch;
	int touchents[MAXTOUCH];

	vec3_t mins, maxs; // bounding box size

	int watertype;
	int waterlevel;

	float xyspeed;

	// for fixed msec Pmove
	int pmove_fixed;
	int pmove_msec;

	// callbacks to test the world
	// these will be different functions during game and cgame
	void (*trace)(trace_t *results, const vec3_t start, const vec3_t mins, const vec3_t maxs,
	              const vec3_t end, int passEntityNum, int contentMask);
	int (*pointcontents)(const vec3_t point, int passEntityNum);
} pmove_t;

// if a full pmove isn't done on the client, you can just update the angles
void PM_UpdateViewAngles(playerState_t *ps, const usercmd_t *cmd);
void Pmove(pmove_t *pmove);

//===================================================================================

// player_state->stats[] indexes
typedef enum {
	STAT_HEALTH,
	STAT_HOLDABLE_ITEM,
	STAT_WEAPONS, // 16 bit fields
	STAT_ARMOR,
	STAT_DEAD_YAW, // look this direction when dead (FIXME: get rid of?)
	STAT_CLIENTS_READY, // bit mask of clients wishing to exit the intermission
	STAT_MAX_HEALTH // health / armor limit, changable by handicap
} statIndex_t;

typedef enum {
	IT_BAD,
	IT_WEAPON, // EFX: rotate + upscale + minlight
	IT_AMMO,   // EFX: rotate
	IT_ARMOR,  // EFX: rotate + minlight
	IT_HEALTH, // EFX: static external sphere + rotating internal
	IT_POWERUP, // instant on, timer based
	IT_HOLDABLE, // single use, holdable item
	IT_TEAM
} itemType_t;

#define MAX_ITEM_MODELS 4

typedef struct gitem_s {
	char *classname; // spawning name
	char *pickup_sound;
	char *world_model[MAX_ITEM_MODELS];

	char *icon;
	char *pickup_name; // for printing on pickup

	int quantity;         // for ammo how much, or duration of powerup
	itemType_t giType;    // IT_* flags
	int giTag;

	char *precaches; // string of all models and images this item will use
	char *sounds;    // string of all sounds this item will use
} gitem_t;

// included in both the game dll and the client
extern gitem_t bg_itemlist[];
extern int bg_numItems;

gitem_t *BG_FindItem(const char *pickupName);
gitem_t *BG_FindItemForWeapon(int weapon);
qboolean BG_CanItemBeGrabbed(int gametype, const entityState_t *ent, const playerState_t *ps);

// animations
typedef struct animation_s {
	int firstFrame;
	int numFrames;
	int loopFrames; // 0 to numFrames
	int frameLerp;  // msec between frames
	int initialLerp; // msec to get to first frame
	int reversed;   // true if animation is reversed
	int flipflop;   // true if animation should flipflop back to base
} animation_t;

void BG_EvaluateTrajectory(const trajectory_t *tr, int atTime, vec3_t result);
void BG_PlayerStateToEntityState(playerState_t *ps, entityState_t *s, qboolean snap);
