// g_public.h -- game module information visible to server

#define GAME_API_VERSION 8

// entity->svFlags
// the server does not know how to interpret most of the values
// in entityStates (level eType), so the game must explicitly flag
// special server behaviors
#define SVF_NOCLIENT 0x00000001 // don't send entity to clients, even if it has effects
#define SVF_BOT 0x00000008 // set if the entity is a bot
#define SVF_BROADCAST 0x00000020 // send to all connected clients
#define SVF_PORTAL 0x00000040 // merge a second pvs at origin2 into snapshots
#define SVF_USE_CURRENT_ORIGIN 0x00000080 // entity->r.currentOrigin instead of entity->s.origin
#define SVF_SINGLECLIENT 0x00000100 // only send to a single client (entityShared_t->singleClient)
#define SVF_NOSERVERINFO 0x00000200 // don't send CS_SERVERINFO updates to this client

//===============================================================

typedef struct {
	entityState_t s; // communicated by server to clients

	qboolean linked; // qfalse if not in any good cluster
	int linkcount;

	int svFlags; // SVF_NOCLIENT, SVF_BROADCAST, etc
	int singleClient; // only send to this client when SVF_SINGLECLIENT is set

	qboolean bmodel; // if false, assume an explicit mins / maxs bounding box
	                 // only set by trap_SetBrushModel
	vec3_t mins, maxs;
	int contents; // CONTENTS_TRIGGER, CONTENTS_SOLID, CONTENTS_BODY, etc
	              // a non-solid entity should set to 0

	vec3_t absmin, absmax; // derived from mins/maxs and origin + rotation

	// currentOrigin will be used for all collision detection and world linking.
	// it will not necessarily be the same as the trajectory evaluation for the current
	// time, because each entity must be moved one at a time after time is advanced
	// to avoid simultanious collision issues
	vec3_t currentOrigin;
	vec3_t currentAngles;

	// when a trace call is made and passEntityNum != ENTITYNUM_NONE,
	// an ent will be excluded from testing if:
	// ent->s.number == passEntityNum	(don't interact with self)
	// ent->s.ownerNum = passEntityNum	(don't interact with your own missiles)
	// entity[ent->s.ownerNum].ownerNum = passEntityNum	(don't interact with other missiles from owner)
	int ownerNum;
} entityShared_t;

// the server looks at a sharedEntity, which is the start of the game's gentity_t structure
typedef struct {
	entityState_t s;  // communicated by server to clients
	entityShared_t r; // shared by both the server system and game
} sharedEntity_t;

//===============================================================

//
// system traps provided by the main engine
//
typedef enum {
	//============== general Quake services ==================

	G_PRINT, // ( const char *string );
	// print message on the local console

	G_ERROR, // ( const char *string );
	// abort the game

	G_MILLISECONDS, // ( void );
	// get current time for profiling reasons
	// this should NOT be used for any game related tasks,
	// because it is not journaled

	// console variable interaction
	G_CVAR_REGISTER, // ( vmCvar_t *vmCvar, const char *varName, const char *defaultValue, int flags );
	G_CVAR_UPDATE,   // ( vmCvar_t *vmCvar );
	G_CVAR_SET,      // ( const char *var_name, const char *value );
	G_CVAR_VARIABLE_INTEGER_VALUE, // ( const char *var_name );

	G_ARGC, // ( void );
	G_ARGV, // ( int n, char *buffer, int bufferLength );

	G_LINKENTITY,   // ( gentity_t *ent );
	G_UNLINKENTITY, // ( gentity_t *ent );
	G_TRACE         // ( trace_t *results, const vec3_t start, const vec3_t mins, const vec3_t maxs, const vec3_t end, int passEntityNum, int contentmask );
} gameImport_t;

//
// functions exported by the game subsystem
//
typedef enum {
	GAME_INIT, // ( int levelTime, int randomSeed, int restart );
	// init and shutdown will be called every single level
	// The game should call G_GET_ENTITY_TOKEN to parse through all the
	// entity configuration text and spawn gentities.

	GAME_SHUTDOWN, // (void);

	GAME_CLIENT_CONNECT, // ( int clientNum, qboolean firstTime, qboolean isBot );
	// return NULL if the client is allowed to connect, otherwise return
	// a text string with the reason for denial

	GAME_CLIENT_BEGIN, // ( int clientNum );

	GAME_CLIENT_USERINFO_CHANGED, // ( int clientNum );

	GAME_CLIENT_DISCONNECT, // ( int clientNum );

	GAME_CLIENT_COMMAND, // ( int clientNum );

	GAME_CLIENT_THINK, // ( int clientNum );

	GAME_RUN_FRAME, // ( int levelTime );

	GAME_CONSOLE_COMMAND // ( void );
	// ConsoleCommand will be called when a command has been issued
	// that is not recognized as a builtin function.
	// The game can issue trap_argc() / trap_argv() commands to get the command
	// and parameters.  Return qfalse if the game doesn't recognize it as a command.
} gameExport_t;
