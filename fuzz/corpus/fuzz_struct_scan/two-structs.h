typedef struct
{
    int x;
} point_t;

typedef struct gentity_s gentity_t;
typedef struct node_s
{
    struct node_s *next;
} node_t;
