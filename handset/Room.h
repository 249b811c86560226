// The room that a platform class keeps for whoever answers it, and what is put there.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

/**
 * Makes an object in the room of a platform class.
 *
 * The engine creates objects of some platform classes itself, so their size belongs to the boundary. Each of them
 * has a fixed array of pointers for the platform's own use; the constructor makes an object there, the members ask
 * inRoom() for it, and the destructor ends it with leaveRoom().
 */
template <typename Object, std::size_t Pointers, typename... Arguments>
Object &makeInRoom(void *(&room)[Pointers], Arguments &&...arguments)
{
    static_assert(sizeof(Object) <= sizeof room && alignof(Object) <= alignof(void *),
                  "keep a pointer to the object in the room instead");
    return *new (static_cast<void *>(room)) Object(std::forward<Arguments>(arguments)...);
}

/** The object that makeInRoom() made. */
template <typename Object, std::size_t Pointers>
Object &inRoom(void *(&room)[Pointers])
{
    return *std::launder(reinterpret_cast<Object *>(room));
}

template <typename Object, std::size_t Pointers>
void leaveRoom(void *(&room)[Pointers])
{
    inRoom<Object>(room).~Object();
}
