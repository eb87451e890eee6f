// bg_misc.c -- both games misc functions, all completely stateless

#include "q_shared.h"
#include "bg_public.h"

/*QUAKED item_***** ( 0 0 0 ) (-16 -16 -16) (16 16 16) suspended
DO NOT USE THIS CLASS, IT JUST HOLDS GENERAL INFORMATION.
The suspended flag will allow items to hang in the air, otherwise they are dropped to the next surface.

If an item is the target of another entity, it will not spawn in until fired.

An item fires all of its targets when it is picked up.  If the toucher can't carry it, the targets won't be fired.

"notfree" if set to 1, don't spawn in free for all games
"notteam" if set to 1, don't spawn in team games
"notsingle" if set to 1, don't spawn in single player games
"wait"	override the default wait before respawning.  -1 = never respawn automatically, which can be used with targeted spawning.
"random" random number of plus or minus seconds varied from the respawn time
"count" override quantity or duration on most items.
*/

gitem_t bg_itemlist[] = {
	{ NULL, NULL, { NULL, NULL, 0, 0 },
	  /* icon */ NULL,
	  /* pickup */ NULL, 0, 0, 0,
	  /* precache */ "",
	  /* sounds */ "" }, // leave index 0 alone

	//
	// ARMOR
	//

	/*QUAKED item_armor_shard (.3 .3 1) (-16 -16 -16) (16 16 16) suspended
	 */
	{ "item_armor_shard", "sound/misc/ar1_pkup.wav",
	  { "models/powerups/armor/shard.md3", "models/powerups/armor/shard_sphere.md3", 0, 0 },
	  /* icon */ "icons/iconr_shard",
	  /* pickup */ "Armor Shard", 5, IT_ARMOR, 0,
	  /* precache */ "",
	  /* sounds */ "" },

	/*QUAKED item_health_small (.3 .3 1) (-16 -16 -16) (16 16 16) suspended
	 */
	{ "item_health_small", "sound/items/s_health.wav",
	  { "models/powerups/health/small_cross.md3", "models/powerups/health/small_sphere.md3", 0, 0 },
	  /* icon */ "icons/iconh_green",
	  /* pickup */ "5 Health", 5, IT_HEALTH, 0,
	  /* precache */ "",
	  /* sounds */ "" },

	// end of list marker
	{ NULL }
};

int bg_numItems = sizeof(bg_itemlist) / sizeof(bg_itemlist[0]) - 1;

/*
==============
BG_FindItem

==============
*/
gitem_t *BG_FindItem(const char *pickupName)
{
	gitem_t *it;

	for (it = bg_itemlist + 1; it->classname; it++) {
		if (!Q_stricmp(it->pickup_name, pickupName))
			return it;
	}

	return NULL;
}

/*
================
BG_EvaluateTrajectory

================
*/
void BG_EvaluateTrajectory(const trajectory_t *tr, int atTime, vec3_t result)
{
	float deltaTime;
	float phase;

	switch (tr->trType) {
	case TR_STATIONARY:
	case TR_INTERPOLATE:
		VectorCopy(tr->trBase, result);
		break;
	case TR_LINEAR:
		deltaTime = (atTime - tr->trTime) * 0.001; // milliseconds to seconds
		VectorMA(tr->trBase, deltaTime, tr->trDelta, result);
		break;
	case TR_SINE:
		deltaTime = (atTime - tr->trTime) / (float)tr->trDuration;
		phase = sin(deltaTime * M_PI * 2);
		VectorMA(tr->trBase, phase, tr->trDelta, result);
		break;
	case TR_GRAVITY:
		deltaTime = (atTime - tr->trTime) * 0.001; // milliseconds to seconds
		VectorMA(tr->trBase, deltaTime, tr->trDelta, result);
		result[2] -= 0.5 * DEFAULT_GRAVITY * deltaTime * deltaTime; // FIXME: local gravity...
		break;
	default:
		Com_Error(ERR_DROP, "BG_EvaluateTrajectory: unknown trType: %i", tr->trTime);
		break;
	}
}
